#pragma once

#include "ShellPage.h"

class ctlNaturalGasSetupGross2 : public ShellPage {
    Q_OBJECT
  public:
    explicit ctlNaturalGasSetupGross2(QWidget* parent = nullptr)
        : ShellPage(QStringLiteral("ctlNaturalGasSetupGross21"),
                    QStringLiteral("NATURAL GAS SETUP"), parent) {}
};
