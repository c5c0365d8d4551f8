#pragma once
// The frame without its window: the project's devices, the user settings, the message service
// and the hosting of the wizard module. A test or a headless run creates one, adds a device,
// swaps in a scripted message service and opens the module; the desktop window wraps one.

#include <QObject>
#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "FrameDevice.h"
#include "FrameManager.h"
#include "FrameMessages.h"
#include "SDK.h"

class QLibrary;
class QWidget;

namespace qdf::frame {

class FrameHost : public QObject {
    Q_OBJECT

  public:
    explicit FrameHost(QObject* parent = nullptr);
    ~FrameHost() override;

    // ---- project --------------------------------------------------------------------------
    FrameDevice& AddDevice(FrameDevice device);
    bool AddDeviceFile(const QString& path, QString* error);
    int DeviceCount() const { return static_cast<int>(devices_.size()); }
    FrameDevice& Device(int index) { return *devices_.at(static_cast<std::size_t>(index)); }
    // Project file: every device's offline data and its modules' business object bytes.
    bool SaveProject(const QString& path, QString* error) const;
    bool OpenProject(const QString& path, QString* error);

    // ---- settings -------------------------------------------------------------------------
    FrameUser user;  // level 2 and the login name unless changed
    FrameOptions options;
    // Not owned; null restores the desktop message boxes.
    void SetMessageService(ISDKMessageService* service);
    ISDKMessageService& MessageService() { return *messages_; }
    QtMessageService& DesktopMessages() { return desktopMessages_; }

    // ---- module hosting -------------------------------------------------------------------
    // Where the module library is looked for: QDF_MODULE_PATH (a file or a folder), the
    // program's folder and its sibling host/module of a build tree, then the system's paths.
    static QStringList ModuleLibraryCandidates();
    // Loads the module library and opens the module on a device, as a child of parent.
    // Returns null and sets error when the library or its factory is missing.
    ISDKModule* OpenWizard(int deviceIndex, QWidget* parent, QString* error);
    // Opens a module created by the caller (tests); destroy is called at close, may be empty.
    ISDKModule* OpenModule(int deviceIndex, ISDKModule* module,
                           std::function<void(ISDKModule*)> destroy);
    bool IsModuleOpen() const { return hosting_ != nullptr; }
    ISDKModule* Module() const;
    FrameManager* Manager() const;
    FrameDevice* HostedDevice() const;
    // Closes the open module now: QueryDisconnect, then destruction.
    void CloseModuleNow();

  signals:
    // The module asked to be closed; the close itself follows from the event loop.
    void moduleCloseRequested();
    void moduleClosed();
    // Something changed a device's offline data (index of the device).
    void deviceChanged(int index);
    void projectChanged();

  private:
    struct Hosting;
    int IndexOf(const FrameDevice* d) const;
    void WatchDevice(FrameDevice& d);

    std::vector<std::unique_ptr<FrameDevice>> devices_;
    std::vector<int> listenerIds_;
    QtMessageService desktopMessages_;
    ISDKMessageService* messages_;
    std::unique_ptr<QLibrary> library_;
    std::unique_ptr<Hosting> hosting_;
    int moduleCounter_ = 0;
};

}  // namespace qdf::frame
