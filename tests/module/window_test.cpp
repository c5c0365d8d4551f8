// The frame's window, as a user starts it, loading the module's shared library.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <cstdlib>

#include "FrameHost.h"
#include "FrameMainWindow.h"

namespace {

template <class T>
T* Child(QWidget* root, const char* page, const char* name) {
    QWidget* p = root->findChild<QWidget*>(QString::fromLatin1(page));
    return p ? p->findChild<T*>(QString::fromLatin1(name)) : nullptr;
}

// Catches a module library the window cannot load, or a Basic run whose writes do not land in
// the device the window shows.
TEST(FrameWindow, OpensTheWizardAndWalksTheBasicPath) {
    static int argc = 1;
    static char name[] = "test_module_window";
    static char* argv[] = {name, nullptr};
    QApplication app(argc, argv);
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    {
        QFile reg(dir.filePath("registry.ini"));
        ASSERT_TRUE(reg.open(QIODevice::WriteOnly));
        reg.write("[SOFTWARE\\TAVRIN\\DTMs\\SondraCommon]\nPath=/opt/qdf/\n");
    }
    setenv("QDF_REGISTRY", dir.filePath("registry.ini").toLocal8Bit().constData(), 1);

    qdf::frame::FrameHost host;
    qdf::frame::ScriptedMessageService messages;
    host.SetMessageService(&messages);
    QString error;
    ASSERT_TRUE(host.AddDeviceFile(QDF_SOURCE_DIR "/data/devices/qdf300_hart.json", &error))
        << error.toStdString();
    qdf::frame::FrameMainWindow window(host);
    window.SelectDevice(0);
    window.show();
    ASSERT_TRUE(window.OpenWizard());
    ASSERT_TRUE(host.IsModuleOpen());

    Child<QRadioButton>(&window, "ctlModeSelection1", "optBasicMode")->click();
    Child<QPushButton>(&window, "ctlModeSelection1", "cmdNext")->click();
    QWidget* basic = window.findChild<QWidget*>("ctlSetupMode1");
    ASSERT_NE(basic, nullptr);
    EXPECT_TRUE(basic->isVisible());
    Child<QRadioButton>(&window, "ctlSetupMode1", "optGas")->click();
    Child<QLineEdit>(&window, "ctlSetupMode1", "txtRefTemp")->setText("20");
    Child<QComboBox>(&window, "ctlSetupMode1", "cboRefTemp")->setCurrentIndex(0);
    Child<QLineEdit>(&window, "ctlSetupMode1", "txtRefStPress")->setText("101.325");
    Child<QComboBox>(&window, "ctlSetupMode1", "cboRefStPres")->setCurrentIndex(11);
    Child<QLineEdit>(&window, "ctlSetupMode1", "txtKFactor")->setText("4");
    Child<QPushButton>(&window, "ctlSetupMode1", "cmdNext")->click();
    Child<QPushButton>(&window, "ctlSaveAndDownload1", "cmdSave")->click();
    for (int i = 0; i < 10 && host.IsModuleOpen(); ++i) QCoreApplication::processEvents();

    EXPECT_FALSE(host.IsModuleOpen());
    EXPECT_TRUE(messages.shown.empty());
    const auto& writes = host.Device(0).writes;
    ASSERT_EQ(writes.size(), 9u);
    EXPECT_EQ(writes[5].parameter, "flow_calc_fixed");
    EXPECT_EQ(host.Device(0).Find("flow_calc_fixed")->value.toDouble(), 4.0);
    EXPECT_EQ(host.Device(0).Find("fluid_type")->value.toDouble(), 2.0);
    EXPECT_EQ(host.Device(0).Find("temp_k1")->value.toDouble(), 0.0);
    unsetenv("QDF_REGISTRY");
}

}  // namespace
