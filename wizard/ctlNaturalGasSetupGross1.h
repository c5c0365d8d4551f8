#pragma once

#include "ShellPage.h"

class ctlNaturalGasSetupGross1 : public ShellPage {
    Q_OBJECT
  public:
    explicit ctlNaturalGasSetupGross1(QWidget* parent = nullptr)
        : ShellPage(QStringLiteral("ctlNaturalGasSetupGross11"),
                    QStringLiteral("NATURAL GAS SETUP"), parent) {}
};
