// qdf-frame: the reference device frame.
//   qdf-frame [PROJECT.qdfproject | DEVICE.json ...] [--user-level N] [--user-name NAME]
//             [--open-wizard]
// Without a project or device the demo HART device is loaded.

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <cstdio>

#include "FrameHost.h"
#include "FrameMainWindow.h"

namespace {

QString DemoDevice() {
    const QString name = "qdf300_hart.json";
    const QDir app(QCoreApplication::applicationDirPath());
    for (const QString& dir : {app.filePath("../share/qdf/devices"), app.filePath("data/devices"),
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
    if (openWizard) window.OpenWizard();
    const int rc = QApplication::exec();
    settings.setValue("user/level", host.user.level);
    settings.setValue("user/name", QString::fromStdString(host.user.name));
    return rc;
}
