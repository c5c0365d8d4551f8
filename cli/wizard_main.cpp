// qdf-wizard: the wizard module hosted headless in the reference frame, driven by a script.
// "qdf wizard" runs it; the script is played by the frame's FrameScript (form in kUsage below).

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <iostream>
#include <string>

#include "FrameHost.h"
#include "FrameScript.h"
#include "Registry.h"
#include "TVRQDFFlowConfigWizard.h"
#include "WizardServices.h"

namespace {

constexpr const char* kUsage =
    "usage: qdf wizard --device DEVICE.json --script SCRIPT.json [--registry FILE]\n"
    "Script: {\"user\": {\"level\": 2, \"name\": \"...\"}, \"answers\": [6, ...],\n"
    "         \"steps\": [ {\"page\": \"ctlSetupMode1\", \"set\": \"txtRefTemp\", \"text\": "
    "\"15\"},\n"
    "                    {\"choose\": \"cboRefTemp\", \"index\": 0} or {\"choose\": ..., "
    "\"entry\": \"degC\"},\n"
    "                    {\"click\": \"cmdNext\"}, {\"cell\": \"grd\", \"row\": 1, \"column\": 2, "
    "\"text\": \"...\"},\n"
    "                    {\"menu\": \"MenuImportQMV\", \"path\": \"f.qmv\"}, {\"answers\": [6]} "
    "]}\n"
    "Prints one row per message shown (message,title,text,kind,buttons,default,answer), then one\n"
    "per parameter write (write,menu,parameter,type,value) and the module's state.\n";

}  // namespace

int main(int argc, char** argv) {
    std::string devicePath, scriptPath, registryPath;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--device" && i + 1 < argc)
            devicePath = argv[++i];
        else if (a == "--script" && i + 1 < argc)
            scriptPath = argv[++i];
        else if (a == "--registry" && i + 1 < argc)
            registryPath = argv[++i];
        else {
            std::cerr << kUsage;
            return 2;
        }
    }
    if (devicePath.empty() || scriptPath.empty()) {
        std::cerr << kUsage;
        return 2;
    }
    qdf::frame::FrameScript script(std::cout);
    std::string error;
    if (!script.Load(scriptPath, &error)) {
        std::cerr << "qdf wizard: " << error << "\n";
        return 2;
    }

    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    // Without machine settings, run as installed beside this program.
    QTemporaryDir scratch;
    if (!registryPath.empty()) {
        qputenv("QDF_REGISTRY", QByteArray::fromStdString(registryPath));
    } else if (!QFile::exists(QString::fromStdString(qdf::module::RegistryFilePath()))) {
        const QString reg = scratch.filePath("registry.ini");
        QFile f(reg);
        if (f.open(QIODevice::WriteOnly)) {
            f.write(("[" + std::string(qdf::module::kSondraCommonKey) +
                     "]\nPath=" + QCoreApplication::applicationDirPath().toStdString() + "/\n")
                        .c_str());
            f.close();
        }
        qputenv("QDF_REGISTRY", reg.toLocal8Bit());
    }

    qdf::frame::FrameHost host;
    script.Attach(host);
    // The module is linked in here, so its file dialogs are answered through its own service.
    qdf::wizard::ScriptedDialogService dialogs;
    qdf::wizard::WizardServices().dialogs = &dialogs;
    script.fileAnswer = [&dialogs](const std::string& path) {
        dialogs.answers.push_back({path, false});
    };

    QString deviceError;
    if (!host.AddDeviceFile(QString::fromStdString(devicePath), &deviceError)) {
        std::cerr << "qdf wizard: " << deviceError.toStdString() << "\n";
        return 2;
    }
    auto* module = new TVRQDFFlowConfigWizard();
    host.OpenModule(0, module,
                    [](ISDKModule* m) { delete static_cast<TVRQDFFlowConfigWizard*>(m); });
    app.processEvents();

    int rc = 0;
    if (!script.Play(host, &error)) {
        std::cerr << "qdf wizard: " << error << "\n";
        rc = 1;
    }
    script.Finish(host, 0);
    qdf::wizard::WizardServices().dialogs = nullptr;
    return rc;
}
