#include "FrameHost.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QSaveFile>
#include <QTimer>
#include <QWidget>

#include "FrameProject.h"

namespace qdf::frame {

namespace {

QString LoginName() {
    QString name = qEnvironmentVariable("USER");
    if (name.isEmpty()) name = qEnvironmentVariable("LOGNAME");
    return name;
}

}  // namespace

struct FrameHost::Hosting {
    FrameDevice* device = nullptr;
    std::unique_ptr<FrameManager> manager;
    ISDKModule* module = nullptr;
    std::function<void(ISDKModule*)> destroy;
    std::string moduleId;
    bool closing = false;
};

FrameHost::FrameHost(QObject* parent) : QObject(parent), messages_(&desktopMessages_) {
    user.name = LoginName().toStdString();
}

FrameHost::~FrameHost() {
    if (hosting_) CloseModuleNow();
}

void FrameHost::WatchDevice(FrameDevice& d) {
    FrameDevice* ptr = &d;
    listenerIds_.push_back(d.AddListener([this, ptr](const std::string&) {
        const int index = IndexOf(ptr);
        if (index >= 0) emit deviceChanged(index);
    }));
}

int FrameHost::IndexOf(const FrameDevice* d) const {
    for (std::size_t i = 0; i < devices_.size(); ++i)
        if (devices_[i].get() == d) return static_cast<int>(i);
    return -1;
}

FrameDevice& FrameHost::AddDevice(FrameDevice device) {
    devices_.push_back(std::make_unique<FrameDevice>(std::move(device)));
    WatchDevice(*devices_.back());
    emit projectChanged();
    return *devices_.back();
}

bool FrameHost::AddDeviceFile(const QString& path, QString* error) {
    auto d = FrameDevice::Load(path, error);
    if (!d) return false;
    AddDevice(std::move(*d));
    return true;
}

bool FrameHost::SaveProject(const QString& path, QString* error) const {
    std::vector<const FrameDevice*> devices;
    for (const auto& d : devices_) devices.push_back(d.get());
    QSaveFile f(path);
    if (!f.open(QIODevice::WriteOnly)) {
        if (error) *error = QString("cannot write %1").arg(path);
        return false;
    }
    f.write(ProjectFileBytes(devices));
    if (!f.commit()) {
        if (error) *error = QString("cannot write %1").arg(path);
        return false;
    }
    return true;
}

bool FrameHost::OpenProject(const QString& path, QString* error) {
    if (hosting_) {
        if (error) *error = "close the flow configuration wizard first";
        return false;
    }
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        if (error) *error = QString("cannot open %1").arg(path);
        return false;
    }
    // Read everything first so that a bad project leaves the open one as it was.
    std::optional<std::vector<FrameDevice>> loaded = ReadProjectFile(f.readAll(), path, error);
    if (!loaded) return false;
    for (std::size_t i = 0; i < devices_.size(); ++i) devices_[i]->RemoveListener(listenerIds_[i]);
    listenerIds_.clear();
    devices_.clear();
    for (auto& d : *loaded) {
        devices_.push_back(std::make_unique<FrameDevice>(std::move(d)));
        WatchDevice(*devices_.back());
    }
    emit projectChanged();
    return true;
}

void FrameHost::SetMessageService(ISDKMessageService* service) {
    messages_ = service != nullptr ? service : &desktopMessages_;
}

QStringList FrameHost::ModuleLibraryCandidates() {
    const QString file = QString("lib%1.so").arg(qdf::sdk::kModuleLibraryName);
    QStringList out;
    const QString env = qEnvironmentVariable("QDF_MODULE_PATH");
    if (!env.isEmpty()) out << (QFileInfo(env).isDir() ? QDir(env).filePath(file) : env);
    if (QCoreApplication::instance() != nullptr) {
        const QDir app(QCoreApplication::applicationDirPath());
        out << app.filePath(file) << app.filePath("../host/module/" + file)
            << app.filePath(QStringLiteral("../" QDF_INSTALL_LIBDIR "/") + file);
    }
#ifdef QDF_MODULE_BUILD_DIR
    out << QDir(QStringLiteral(QDF_MODULE_BUILD_DIR)).filePath(file);
#endif
    out << QString(qdf::sdk::kModuleLibraryName);  // the system's library paths
    return out;
}

ISDKModule* FrameHost::OpenWizard(int deviceIndex, QWidget* parent, QString* error) {
    if (hosting_) {
        if (error) *error = "the flow configuration wizard is already open";
        return nullptr;
    }
    if (deviceIndex < 0 || deviceIndex >= DeviceCount()) {
        if (error) *error = "no device selected";
        return nullptr;
    }
    if (!library_ || !library_->isLoaded()) {
        QStringList tried;
        for (const QString& candidate : ModuleLibraryCandidates()) {
            auto lib = std::make_unique<QLibrary>(candidate);
            if (lib->load()) {
                library_ = std::move(lib);
                break;
            }
            tried << lib->errorString();
        }
        if (!library_) {
            if (error)
                *error = QString(
                             "The flow configuration wizard module (lib%1) is not "
                             "installed or could not be loaded.\n\n%2")
                             .arg(qdf::sdk::kModuleLibraryName, tried.join("\n"));
            return nullptr;
        }
    }
    auto create = reinterpret_cast<qdf::sdk::CreateModuleFn>(
        library_->resolve(qdf::sdk::kCreateModuleSymbol));
    auto destroy = reinterpret_cast<qdf::sdk::DestroyModuleFn>(
        library_->resolve(qdf::sdk::kDestroyModuleSymbol));
    if (create == nullptr || destroy == nullptr) {
        if (error)
            *error = QString("%1 does not export the module factory").arg(library_->fileName());
        return nullptr;
    }
    ISDKModule* module = create(parent);
    if (module == nullptr) {
        if (error) *error = "the module factory returned no module";
        return nullptr;
    }
    return OpenModule(deviceIndex, module, [destroy](ISDKModule* m) { destroy(m); });
}

ISDKModule* FrameHost::OpenModule(int deviceIndex, ISDKModule* module,
                                  std::function<void(ISDKModule*)> destroy) {
    if (hosting_ || module == nullptr) return nullptr;
    auto h = std::make_unique<Hosting>();
    h->device = &Device(deviceIndex);
    h->manager = std::make_unique<FrameManager>(*h->device, user, *messages_, options);
    h->module = module;
    h->destroy = std::move(destroy);
    h->moduleId =
        "QDFSondra." + std::to_string(deviceIndex) + "." + std::to_string(++moduleCounter_);
    h->manager->onCloseRequested = [this](const std::string& id) {
        // The module asks from inside its own handler: tear it down once that has returned.
        if (!hosting_ || hosting_->moduleId != id || hosting_->closing) return;
        hosting_->closing = true;
        emit moduleCloseRequested();
        QTimer::singleShot(0, this, [this] {
            if (hosting_ && hosting_->closing) CloseModuleNow();
        });
    };
    hosting_ = std::move(h);
    module->ISDKModule_OnConnectionStatusChange(hosting_->device->Bus(), 0);
    module->ISDKModule_Initialize(hosting_->moduleId, 0, "", hosting_->manager.get());
    return hosting_ ? hosting_->module : nullptr;
}

ISDKModule* FrameHost::Module() const {
    return hosting_ ? hosting_->module : nullptr;
}
FrameManager* FrameHost::Manager() const {
    return hosting_ ? hosting_->manager.get() : nullptr;
}
FrameDevice* FrameHost::HostedDevice() const {
    return hosting_ ? hosting_->device : nullptr;
}

void FrameHost::CloseModuleNow() {
    if (!hosting_) return;
    std::unique_ptr<Hosting> h = std::move(hosting_);
    h->module->ISDKModule_QueryDisconnect();
    h->module->ISDKModule_Disconnect();
    if (h->destroy) h->destroy(h->module);
    h.reset();
    emit moduleClosed();
}

}  // namespace qdf::frame
