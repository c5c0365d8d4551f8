#pragma once

#include "ShellPage.h"

class ctlPhysicalPropertySetup : public ShellPage {
    Q_OBJECT
  public:
    explicit ctlPhysicalPropertySetup(QWidget* parent = nullptr)
        : ShellPage(QStringLiteral("ctlPhysicalPropertySetup1"),
                    QStringLiteral("FLUID PHYSICAL PROPERTY SETUP"), parent) {}
};
