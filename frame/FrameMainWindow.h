#pragma once
// The desktop window of the frame: the project's devices, the selected device's offline data,
// what modules wrote into it, and the hosted flow configuration wizard.

#include <QMainWindow>
#include <QPointer>
#include <QString>
#include <functional>

class QAction;
class QDialog;
class QListWidget;
class QTabWidget;
class QTableWidget;
class QWidget;

namespace qdf::frame {

class FrameFlowCheckDialog;
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

    QAction* FlowCheckAction() const { return actFlowCheck_; }
    // Checks the parameters written into the selected device's data against a saved
    // configuration, asked for through chooseConfiguration when `qmvPath` is empty, and shows
    // the result. False when there was nothing to check or the file was refused.
    bool FlowCheckWrittenParameters(QString qmvPath = {});
    // The open result, null when none.
    FrameFlowCheckDialog* FlowCheckDialog() const;
    // Asks for the saved configuration; the file dialog unless replaced (tests).
    std::function<QString()> chooseConfiguration;
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
    QAction* actFlowCheck_;
    QPointer<QDialog> flowCheck_;
    QString projectPath_;
};

}  // namespace qdf::frame
