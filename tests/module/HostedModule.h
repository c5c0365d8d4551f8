#pragma once
// The module opened by the reference frame's host on a demo device, with a registry file of its
// own, the messages scripted and recorded.

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
#include "TVRQDFFCWMain.h"
#include "TVRQDFFlowConfigWizard.h"
#include "clsExGlobalVars.h"
#include "ctlModeSelection.h"
#include "ctlSaveAndDownload.h"
#include "ctlSetupMode.h"

namespace qdf::test {

inline QApplication& App() {
    static int argc = 1;
    static char name[] = "test_module";
    static char* argv[] = {name, nullptr};
    static QApplication* app = new QApplication(argc, argv);
    return *app;
}

class HostedModule : public ::testing::Test {
  protected:
    void SetUp() override {
        App();
        ASSERT_TRUE(dir.isValid());
        WriteRegistry("[SOFTWARE\\TAVRIN\\DTMs\\SondraCommon]\nPath=" + dir.path().toStdString() +
                      "/\n");
        setenv("LC_ALL", "C", 1);  // not Japan: the full unit lists
        host.SetMessageService(&messages);
    }
    void TearDown() override {
        if (host.IsModuleOpen()) host.CloseModuleNow();
        unsetenv("QDF_REGISTRY");
    }
    void WriteRegistry(const std::string& text) {
        const QString path = dir.filePath("registry.ini");
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(text.c_str());
        f.close();
        setenv("QDF_REGISTRY", path.toLocal8Bit().constData(), 1);
    }
    void AddDevice(const char* file) {
        QString error;
        ASSERT_TRUE(host.AddDeviceFile(QString(QDF_SOURCE_DIR "/data/devices/") + file, &error))
            << error.toStdString();
    }
    TVRQDFFlowConfigWizard* Open(int device = 0) {
        module = new TVRQDFFlowConfigWizard();
        host.OpenModule(device, module,
                        [](ISDKModule* m) { delete static_cast<TVRQDFFlowConfigWizard*>(m); });
        return module;
    }
    clsExGlobalVars& Store() { return *module->Store(); }
    TVRQDFFCWMain& Main() { return *module->MainControl(); }
    std::vector<std::string> Texts() const {
        std::vector<std::string> t;
        for (const auto& m : messages.shown) t.push_back(m.text);
        return t;
    }
    // Lets the frame carry out a close the module asked for.
    void Settle() {
        for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
    }

    QTemporaryDir dir;
    frame::FrameHost host;
    frame::ScriptedMessageService messages;
    TVRQDFFlowConfigWizard* module = nullptr;
};

}  // namespace qdf::test
