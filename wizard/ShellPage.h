#pragma once
// A page of the Auto Compensation sequence whose fields are not built yet: it follows the
// common page interface, shows its title and offers the common Cancel.

#include "ctlPage.h"

class ShellPage : public ctlPage {
    Q_OBJECT
  public:
    ShellPage(const QString& objectName, const QString& title, QWidget* parent);
};
