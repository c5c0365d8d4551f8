#pragma once
// Natural gas by ISO 12213 physical properties: relative density, heating value, CO2 and H2.

#include "NaturalGasGrossPage.h"

class ctlNaturalGasSetupISO : public NaturalGasGrossPage {
    Q_OBJECT
  public:
    explicit ctlNaturalGasSetupISO(QWidget* parent = nullptr);
};
