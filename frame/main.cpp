// qdf-frame: the reference device frame.
//   qdf-frame [PROJECT.qdfproject | DEVICE.json ...] [--user-level N] [--user-name NAME]
//             [--open-wizard] [--script SCRIPT.json]
// Without a project or device the demo HART device is loaded. With a script the window opens
// the wizard on the first device, plays the script through it, prints what the wizard showed
// and wrote, and quits: 0 when every step was played, 1 otherwise.

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QTimer>
#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

#include "FrameHost.h"
#include "FrameMainWindow.h"
#include "FrameScript.h"

namespace {

QString DemoDevice() {
    const QString name = "qdf300_hart.json";
    const QDir app(QCoreApplication::applicationDirPath());
    for (const QString& dir :
         {app.filePath("../share/qdfsondra/devices"), app.filePath("data/devices"),
          QStringLiteral(QDF_DEVICE_DATA_DIR_FALLBACK)}) {
        if (QFileInfo::exists(QDir(dir).filePath(name))) return QDir(dir).filePath(name);
    }
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("qdf-frame");
    QApplication::setOrganizationName("TAVRIN");

    // Declared before the host: the host answers messages through the script's service to the end.
    std::unique_ptr<qdf::frame::FrameScript> script;
    qdf::frame::FrameHost host;
    QSettings settings;
    host.user.level = settings.value("user/level", host.user.level).toInt();
    host.user.name = settings.value("user/name", QString::fromStdString(host.user.name))
                         .toString()
                         .toStdString();

    QStringList files;
    QString project;
    bool openWizard = false;
    const QStringList args = QApplication::arguments();
    for (int i = 1; i < args.size(); ++i) {
        const QString& a = args[i];
        if (a == "--open-wizard") {
            openWizard = true;
        } else if (a == "--script" && i + 1 < args.size()) {
            script = std::make_unique<qdf::frame::FrameScript>(std::cout);
            std::string error;
            if (!script->Load(args[++i].toStdString(), &error)) {
                std::fprintf(stderr, "qdf-frame: %s\n", error.c_str());
                return 1;
            }
        } else if (a == "--user-level" && i + 1 < args.size()) {
            host.user.level = args[++i].toInt();
        } else if (a == "--user-name" && i + 1 < args.size()) {
            host.user.name = args[++i].toStdString();
        } else if (a.endsWith(".qdfproject")) {
            project = a;
        } else {
            files << a;
        }
    }

    // The script's user and answers; its message service also keeps the window from blocking.
    if (script) script->Attach(host);
    qdf::frame::FrameMainWindow window(host);
    if (!project.isEmpty()) {
        if (!window.OpenProjectFrom(project)) return 1;
    }
    if (project.isEmpty() && files.isEmpty()) {
        const QString demo = DemoDevice();
        if (!demo.isEmpty()) files << demo;
    }
    for (const QString& f : files) {
        QString error;
        if (!host.AddDeviceFile(f, &error)) {
            std::fprintf(stderr, "qdf-frame: %s\n", qPrintable(error));
            return 1;
        }
    }
    window.SelectDevice(0);
    window.show();
    if (script) {
        // Played from the event loop, with the window up as a user sees it.
        QTimer::singleShot(0, &window, [&] {
            int rc = 0;
            std::string error;
            if (!window.OpenWizard()) {
                error = "the flow configuration wizard could not be opened";
            } else {
                QCoreApplication::processEvents();
                script->Play(host, &error);
            }
            if (!error.empty()) {
                std::fprintf(stderr, "qdf-frame: %s\n", error.c_str());
                rc = 1;
            }
            script->Finish(host, window.CurrentDevice());
            QApplication::exit(rc);
        });
        // A scripted run leaves the user's settings as they were.
        return QApplication::exec();
    }
    if (openWizard) window.OpenWizard();
    const int rc = QApplication::exec();
    settings.setValue("user/level", host.user.level);
    settings.setValue("user/name", QString::fromStdString(host.user.name));
    return rc;
}
