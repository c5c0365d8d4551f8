#pragma once

#include "ShellPage.h"

class ctlPrimaryElementSetup : public ShellPage {
    Q_OBJECT
  public:
    explicit ctlPrimaryElementSetup(QWidget* parent = nullptr)
        : ShellPage(QStringLiteral("ctlPrimaryElementSetup1"),
                    QStringLiteral("PRIMARY DEVICE AND PIPE SETUP"), parent) {}
};
