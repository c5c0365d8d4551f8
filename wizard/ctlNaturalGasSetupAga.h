#pragma once

#include "ShellPage.h"

class ctlNaturalGasSetupAga : public ShellPage {
    Q_OBJECT
  public:
    explicit ctlNaturalGasSetupAga(QWidget* parent = nullptr)
        : ShellPage(QStringLiteral("ctlNaturalGasSetupAga1"), QStringLiteral("NATURAL GAS SETUP"),
                    parent) {}
};
