#pragma once
// Natural gas by AGA8 gross method 2: relative density, CO2, N2, H2 and CO; no heating value.

#include "NaturalGasGrossPage.h"

class ctlNaturalGasSetupGross2 : public NaturalGasGrossPage {
    Q_OBJECT
  public:
    explicit ctlNaturalGasSetupGross2(QWidget* parent = nullptr);
};
