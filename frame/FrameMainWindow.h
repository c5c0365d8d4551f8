#pragma once
// The desktop window of the frame: the project's devices, the selected device's offline data,
// what modules wrote into it, and the hosted flow configuration wizard.

#include <QMainWindow>
#include <QString>

class QAction;
class QListWidget;
class QTabWidget;
class QTableWidget;
class QWidget;

namespace qdf::frame {

class FrameHost;

class FrameMainWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit FrameMainWindow(FrameHost& host, QWidget* parent = nullptr);

    QAction* OpenWizardAction() const { return actOpenWizard_; }
    int CurrentDevice() const;
    void SelectDevice(int index);
    // Opens the wizard on the selected device; shows why when it cannot.
    bool OpenWizard();
    // The project file the window saves to ("" until one was opened or saved).
    QString ProjectPath() const { return projectPath_; }
    bool SaveProjectTo(const QString& path);
    bool OpenProjectFrom(const QString& path);

  private slots:
    void RefreshDevices();
    void RefreshParameters();
    void OnModuleClosed();
    void AddDeviceDialog();
    void OpenProjectDialog();
    void SaveProject();
    void SaveProjectAsDialog();
    void UserSettingsDialog();

  private:
    void ShowError(const QString& text);

    FrameHost& host_;
    QListWidget* devices_;
    QTabWidget* tabs_;
    QTableWidget* params_;
    QTableWidget* writes_;
    QWidget* wizardPage_ = nullptr;
    QAction* actOpenWizard_;
    QString projectPath_;
};

}  // namespace qdf::frame
