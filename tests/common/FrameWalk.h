#pragma once
// A wizard script played in a frame as a user would walk it: the installation key and log folder
// of a test, the configuration saved just before Apply, and the walk itself.

#include <gtest/gtest.h>

#include <QFile>
#include <QString>
#include <cstdlib>
#include <sstream>
#include <string>

#include <nlohmann/json.hpp>

#include "FrameHost.h"
#include "FrameScript.h"
#include "TVRQDFFlowConfigWizard.h"
#include "WizardServices.h"

namespace qdf::test {

// The installation key (with the debug flag as given) and the log folder, both in `dir`.
inline void PrepareInstallation(const QString& dir, bool debug) {
    const QString reg = dir + "/registry.ini";
    QFile f(reg);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(("[SOFTWARE\\TAVRIN\\DTMs\\SondraCommon]\nPath=" + dir +
             "/\n\n[SOFTWARE\\TAVRIN\\DTMs\\QDFSondra]\nMgt_DebugModeFlag=" + (debug ? "1" : "0") +
             "\n")
                .toUtf8());
    setenv("QDF_REGISTRY", reg.toLocal8Bit().constData(), 1);
    // The log folder a user of the tool has; without it a property warning fails the step.
    setenv("QDF_LOG_DIR", dir.toLocal8Bit().constData(), 1);
}

// The script with an export of the configuration just before Apply.
inline nlohmann::json SavingBeforeApply(nlohmann::json script, const std::string& qmv) {
    auto& steps = script["steps"];
    for (std::size_t i = 0; i < steps.size(); ++i)
        if (steps[i].value("click", "") == "cmdSave") {
            steps.insert(steps.begin() + static_cast<std::ptrdiff_t>(i),
                         nlohmann::json::object({{"menu", "MenuExportQMV"}, {"path", qmv}}));
            break;
        }
    return script;
}

// Plays the script on a new module over the device file in `host`; the rows the frame printed.
inline std::string PlayInFrame(frame::FrameHost& host, const nlohmann::json& script,
                               const QString& deviceFile) {
    std::ostringstream out;
    frame::FrameScript player(out);
    std::string error;
    EXPECT_TRUE(player.Parse(script.dump(), &error)) << error;
    player.Attach(host);
    wizard::ScriptedDialogService dialogs;
    wizard::WizardServices().dialogs = &dialogs;
    player.fileAnswer = [&dialogs](const std::string& p) { dialogs.answers.push_back({p, false}); };
    QString deviceError;
    EXPECT_TRUE(host.AddDeviceFile(deviceFile, &deviceError)) << deviceError.toStdString();
    host.OpenModule(0, new TVRQDFFlowConfigWizard(),
                    [](ISDKModule* m) { delete static_cast<TVRQDFFlowConfigWizard*>(m); });
    EXPECT_TRUE(player.Play(host, &error)) << error;
    player.Finish(host, 0);
    wizard::WizardServices().dialogs = nullptr;
    return out.str();
}

}  // namespace qdf::test
