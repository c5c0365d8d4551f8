#pragma once
// Natural gas by AGA8 gross method 1: relative density, heating value, CO2, H2 and CO.

#include "NaturalGasGrossPage.h"

class ctlNaturalGasSetupGross1 : public NaturalGasGrossPage {
    Q_OBJECT
  public:
    explicit ctlNaturalGasSetupGross1(QWidget* parent = nullptr);
};
