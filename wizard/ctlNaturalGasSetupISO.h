#pragma once

#include "ShellPage.h"

class ctlNaturalGasSetupISO : public ShellPage {
    Q_OBJECT
  public:
    explicit ctlNaturalGasSetupISO(QWidget* parent = nullptr)
        : ShellPage(QStringLiteral("ctlNaturalGasSetupISO1"), QStringLiteral("NATURAL GAS SETUP"),
                    parent) {}
};
