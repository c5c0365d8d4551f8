// qdf-wizard: the wizard module hosted headless in the reference frame, driven by a script.
// "qdf wizard" runs it; see WizardUsage below for the script form.

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QTableWidget>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "FrameHost.h"
#include "Registry.h"
#include "TVRQDFFCWMain.h"
#include "TVRQDFFlowConfigWizard.h"
#include "WizardServices.h"
#include "ctlPage.h"

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

std::string Quote(const std::string& s) {
    std::string q = "\"";
    for (char c : s) {
        if (c == '"') q += '"';
        q += c;
    }
    return q + "\"";
}

std::string Number(double v) {
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.17g", v);
    return buf;
}

std::string TypeAndValue(const qdf::Value& v) {
    using K = qdf::Value::Kind;
    switch (v.kind()) {
        case K::Empty:
            return "empty,";
        case K::Bool:
            return std::string("bool,") + (v.toDouble() != 0 ? "true" : "false");
        case K::Int16:
            return "int16," + Number(v.toDouble());
        case K::Int32:
            return "int32," + Number(v.toDouble());
        case K::Float:
            return "float," + Number(v.toDouble());
        case K::Double:
            return "double," + Number(v.toDouble());
        case K::String:
            return "string," + Quote(v.str());
        case K::StringArray:
            return "strings," + std::to_string(v.strings().size());
    }
    return "empty,";
}

struct ScriptError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

template <class T>
T* Find(QWidget* root, const nlohmann::json& step, const std::string& name) {
    QWidget* scope = root;
    if (step.contains("page")) {
        const std::string page = step.at("page").get<std::string>();
        scope = root->findChild<QWidget*>(QString::fromStdString(page));
        if (!scope) throw ScriptError("no page " + page);
    }
    // Within the page in view first: every page has its own cmdNext.
    if (!step.contains("page")) {
        for (auto* page : root->findChildren<ctlPage*>()) {
            if (page->isHidden()) continue;
            if (T* w = page->findChild<T*>(QString::fromStdString(name))) return w;
        }
    }
    T* w = scope->findChild<T*>(QString::fromStdString(name));
    if (!w) throw ScriptError("no control " + name);
    return w;
}

void RunStep(QWidget* root, const nlohmann::json& step, qdf::frame::ScriptedMessageService& msgs,
             qdf::wizard::ScriptedDialogService& dialogs) {
    if (step.contains("answers")) {
        for (const auto& a : step.at("answers")) msgs.answers.push_back(a.get<int>());
    }
    if (step.contains("set")) {
        auto* box = Find<QLineEdit>(root, step, step.at("set").get<std::string>());
        box->setText(QString::fromStdString(step.value("text", std::string())));
    }
    if (step.contains("choose")) {
        auto* box = Find<QComboBox>(root, step, step.at("choose").get<std::string>());
        if (step.contains("entry")) {
            const int i =
                box->findText(QString::fromStdString(step.at("entry").get<std::string>()));
            if (i < 0) throw ScriptError("no entry " + step.at("entry").get<std::string>());
            box->setCurrentIndex(i);
        } else {
            box->setCurrentIndex(step.value("index", -1));
        }
    }
    if (step.contains("cell")) {
        auto* grid = Find<QTableWidget>(root, step, step.at("cell").get<std::string>());
        const int r = step.value("row", 0), c = step.value("column", 0);
        auto* item = grid->item(r, c);
        if (!item) grid->setItem(r, c, item = new QTableWidgetItem);
        item->setText(QString::fromStdString(step.value("text", std::string())));
    }
    if (step.contains("menu")) {
        const std::string name = step.at("menu").get<std::string>();
        auto* action = root->findChild<QAction*>(QString::fromStdString(name));
        if (!action) throw ScriptError("no menu entry " + name);
        if (step.contains("path"))
            dialogs.answers.push_back({step.at("path").get<std::string>(), false});
        action->trigger();
    }
    if (step.contains("click")) {
        auto* button = Find<QAbstractButton>(root, step, step.at("click").get<std::string>());
        button->click();
    }
}

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
    nlohmann::json script;
    try {
        std::ifstream in(scriptPath);
        if (!in) throw std::runtime_error("cannot open " + scriptPath);
        script = nlohmann::json::parse(in);
    } catch (const std::exception& e) {
        std::cerr << "qdf wizard: " << e.what() << "\n";
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
    qdf::frame::ScriptedMessageService messages;
    messages.onShown = [](const qdf::frame::ShownMessage& m) {
        std::cout << "message," << Quote(m.title) << "," << Quote(m.text) << "," << m.kind << ","
                  << m.buttons << "," << m.defaultButton << "," << m.answer << "\n";
    };
    host.SetMessageService(&messages);
    qdf::wizard::ScriptedDialogService dialogs;
    qdf::wizard::WizardServices().dialogs = &dialogs;
    if (script.contains("user")) {
        host.user.level = script["user"].value("level", host.user.level);
        host.user.name = script["user"].value("name", host.user.name);
    }
    if (script.contains("answers"))
        for (const auto& a : script["answers"]) messages.answers.push_back(a.get<int>());

    QString error;
    if (!host.AddDeviceFile(QString::fromStdString(devicePath), &error)) {
        std::cerr << "qdf wizard: " << error.toStdString() << "\n";
        return 2;
    }
    auto* module = new TVRQDFFlowConfigWizard();
    host.OpenModule(0, module,
                    [](ISDKModule* m) { delete static_cast<TVRQDFFlowConfigWizard*>(m); });
    app.processEvents();

    int rc = 0;
    try {
        for (const auto& step : script.value("steps", nlohmann::json::array())) {
            if (!host.IsModuleOpen()) throw ScriptError("the module is closed");
            RunStep(module, step, messages, dialogs);
            for (int i = 0; i < 5; ++i) app.processEvents();
        }
    } catch (const std::exception& e) {
        std::cerr << "qdf wizard: " << e.what() << "\n";
        rc = 1;
    }

    for (const auto& w : host.Device(0).writes)
        std::cout << "write," << Quote(w.menu) << "," << Quote(w.parameter) << ","
                  << TypeAndValue(w.value) << "\n";
    if (host.IsModuleOpen()) {
        ctlPage* page = module->MainControl()->CurrentPageControl();
        std::cout << "module,open," << (page ? page->objectName().toStdString() : std::string())
                  << "\n";
        host.CloseModuleNow();
    } else {
        std::cout << "module,closed\n";
    }
    qdf::wizard::WizardServices().dialogs = nullptr;
    return rc;
}
