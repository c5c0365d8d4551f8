#pragma once

#include "ShellPage.h"

class ctlOperatingRangeSetup : public ShellPage {
    Q_OBJECT
  public:
    explicit ctlOperatingRangeSetup(QWidget* parent = nullptr)
        : ShellPage(QStringLiteral("ctlOperatingRangeSetup1"),
                    QStringLiteral("FLUID OPERATING RANGE SETUP"), parent) {}
};
