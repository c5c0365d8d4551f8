#pragma once

#include "ShellPage.h"

class ctlOperatingRangeLiquid : public ShellPage {
    Q_OBJECT
  public:
    explicit ctlOperatingRangeLiquid(QWidget* parent = nullptr)
        : ShellPage(QStringLiteral("ctlOperatingRangeLiquid1"),
                    QStringLiteral("FLUID OPERATING RANGE SETUP"), parent) {}
};
