#pragma once
// A main control on a prepared store, as the module leaves it after start-up.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "FakeHost.h"
#include "ModDefaults.h"
#include "TVRQDFFCWMain.h"
#include "ctlFluidSetup.h"
#include "ctlModeSelection.h"
#include "ctlPrimaryElementSetup.h"
#include "ctlSaveAndDownload.h"
#include "ctlSetupMode.h"

namespace qdf::test {

inline QApplication& App() {
    static int argc = 1;
    static char name[] = "test_wizard";
    static char* argv[] = {name, nullptr};
    static QApplication* app = new QApplication(argc, argv);
    return *app;
}

class WizardFixture : public ::testing::Test {
  protected:
    void Open(const std::string& bus = "HART", int level = 2,
              const std::string& location = "Other") {
        App();
        InitializeDefaults(s);
        PrepareStore(s, host, bus, level, location);
        main = std::make_unique<TVRQDFFCWMain>();
        main->Initialize(&s);
        main->UpdateImportedVars();
    }
    ctlSetupMode& Basic() { return *main->ctlSetupMode1; }
    ctlModeSelection& Mode() { return *main->ctlModeSelection1; }
    ctlSaveAndDownload& Apply() { return *main->ctlSaveAndDownload1; }
    ctlPrimaryElementSetup& Primary() { return *main->ctlPrimaryElementSetup1; }
    ctlFluidSetup& Fluid() { return *main->ctlFluidSetup1; }

    FakeHost host;
    clsExGlobalVars s;
    std::unique_ptr<TVRQDFFCWMain> main;
};

}  // namespace qdf::test
