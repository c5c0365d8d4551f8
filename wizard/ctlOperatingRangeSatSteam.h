#pragma once

#include "ShellPage.h"

class ctlOperatingRangeSatSteam : public ShellPage {
    Q_OBJECT
  public:
    explicit ctlOperatingRangeSatSteam(QWidget* parent = nullptr)
        : ShellPage(QStringLiteral("ctlOperatingRangeSatSteam1"),
                    QStringLiteral("FLUID OPERATING RANGE SETUP"), parent) {}
};
