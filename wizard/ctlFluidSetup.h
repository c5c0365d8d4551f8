#pragma once

#include "ShellPage.h"

class ctlFluidSetup : public ShellPage {
    Q_OBJECT
  public:
    explicit ctlFluidSetup(QWidget* parent = nullptr)
        : ShellPage(QStringLiteral("ctlFluidSetup1"), QStringLiteral("FLUID TYPE SETUP"), parent) {}
};
