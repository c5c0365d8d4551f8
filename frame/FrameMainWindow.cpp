#include "FrameMainWindow.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include "CheckInput.h"
#include "FlowCheck.h"
#include "FrameFlowCheck.h"
#include "FrameHost.h"
#include "clsExGlobalVars.h"

namespace qdf::frame {

namespace {

QTableWidget* MakeTable(const QStringList& headers, const char* objectName) {
    auto* t = new QTableWidget(0, static_cast<int>(headers.size()));
    t->setObjectName(objectName);
    t->setHorizontalHeaderLabels(headers);
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->setSelectionBehavior(QAbstractItemView::SelectRows);
    t->verticalHeader()->setVisible(false);
    t->horizontalHeader()->setStretchLastSection(true);
    return t;
}

void SetRow(QTableWidget* t, int row, const QStringList& cells) {
    for (int c = 0; c < cells.size(); ++c) t->setItem(row, c, new QTableWidgetItem(cells[c]));
}

}  // namespace

FrameMainWindow::FrameMainWindow(FrameHost& host, QWidget* parent)
    : QMainWindow(parent), host_(host) {
    setObjectName("FrameMainWindow");
    setWindowTitle("QDF300 Device Frame");
    resize(1100, 720);

    devices_ = new QListWidget;
    devices_->setObjectName("lstDevices");
    params_ = MakeTable({"Parameter", "Description", "Value", "Type", "Groups"}, "tblParameters");
    writes_ = MakeTable({"#", "Group", "Parameter", "Value written"}, "tblWrites");
    tabs_ = new QTabWidget;
    tabs_->setObjectName("tabsDevice");
    tabs_->addTab(params_, "Offline data");
    tabs_->addTab(writes_, "Written by modules");

    auto* split = new QSplitter;
    split->addWidget(devices_);
    split->addWidget(tabs_);
    split->setStretchFactor(1, 4);
    setCentralWidget(split);

    QMenu* file = menuBar()->addMenu("&Project");
    file->addAction("&Open...", this, &FrameMainWindow::OpenProjectDialog);
    file->addAction("&Save", this, &FrameMainWindow::SaveProject);
    file->addAction("Save &as...", this, &FrameMainWindow::SaveProjectAsDialog);
    file->addSeparator();
    file->addAction("Add &device...", this, &FrameMainWindow::AddDeviceDialog);
    file->addSeparator();
    file->addAction("&Quit", this, &QWidget::close);

    QMenu* device = menuBar()->addMenu("&Device");
    actOpenWizard_ =
        device->addAction("Flow &Configuration Wizard", this, [this] { OpenWizard(); });
    actOpenWizard_->setObjectName("actionOpenWizard");
    actFlowCheck_ = device->addAction("Flow Check of &Written Parameters...", this,
                                      [this] { FlowCheckWrittenParameters(); });
    actFlowCheck_->setObjectName("actionFlowCheckWritten");

    QMenu* settings = menuBar()->addMenu("&Settings");
    settings->addAction("&User...", this, &FrameMainWindow::UserSettingsDialog);

    QToolBar* bar = addToolBar("Main");
    bar->addAction(actOpenWizard_);

    connect(devices_, &QListWidget::currentRowChanged, this, &FrameMainWindow::RefreshParameters);
    connect(&host_, &FrameHost::deviceChanged, this, [this](int index) {
        if (index == CurrentDevice()) RefreshParameters();
    });
    connect(&host_, &FrameHost::projectChanged, this, &FrameMainWindow::RefreshDevices);
    connect(&host_, &FrameHost::moduleClosed, this, &FrameMainWindow::OnModuleClosed);
    host_.DesktopMessages().setParent(this);
    RefreshDevices();
}

int FrameMainWindow::CurrentDevice() const {
    return devices_->currentRow();
}

void FrameMainWindow::SelectDevice(int index) {
    devices_->setCurrentRow(index);
}

void FrameMainWindow::RefreshDevices() {
    const int keep = devices_->currentRow();
    devices_->clear();
    for (int i = 0; i < host_.DeviceCount(); ++i) {
        const FrameDevice& d = host_.Device(i);
        const FrameParameter* tag = d.Find(d.Bus() == "FFH1" ? "__DDC_ADDONS.0.PD_TAG" : "tag");
        QString text = QString::fromStdString(d.Name());
        if (tag) text += "  [" + QString::fromStdString(tag->value.str()).trimmed() + "]";
        devices_->addItem(text);
    }
    if (host_.DeviceCount() > 0)
        devices_->setCurrentRow(keep >= 0 && keep < host_.DeviceCount() ? keep : 0);
    RefreshParameters();
}

void FrameMainWindow::RefreshParameters() {
    params_->setRowCount(0);
    writes_->setRowCount(0);
    const int index = CurrentDevice();
    actOpenWizard_->setEnabled(index >= 0 && !host_.IsModuleOpen());
    actFlowCheck_->setEnabled(index >= 0 && index < host_.DeviceCount() &&
                              !host_.Device(index).Parameters().empty());
    if (index < 0 || index >= host_.DeviceCount()) return;
    const FrameDevice& d = host_.Device(index);
    params_->setRowCount(static_cast<int>(d.Parameters().size()));
    int row = 0;
    for (const FrameParameter& p : d.Parameters()) {
        SetRow(params_, row++,
               {QString::fromStdString(p.name), QString::fromStdString(p.label),
                QString::fromStdString(ValueText(p.value)), QString::fromStdString(p.type),
                QString::fromStdString(d.MenusOf(p.name))});
    }
    writes_->setRowCount(static_cast<int>(d.writes.size()));
    row = 0;
    for (const FrameWrite& w : d.writes) {
        SetRow(
            writes_, row,
            {QString::number(row + 1), QString::fromStdString(w.menu),
             QString::fromStdString(w.parameter), QString::fromStdString(DescribeValue(w.value))});
        ++row;
    }
}

bool FrameMainWindow::OpenWizard() {
    const int index = CurrentDevice();
    if (host_.IsModuleOpen()) return false;
    wizardPage_ = new QWidget;
    wizardPage_->setObjectName("wizardHost");
    auto* layout = new QVBoxLayout(wizardPage_);
    layout->setContentsMargins(0, 0, 0, 0);
    const int tab = tabs_->addTab(wizardPage_, "Flow Configuration Wizard");
    tabs_->setCurrentIndex(tab);
    QString error;
    ISDKModule* module = host_.OpenWizard(index, wizardPage_, &error);
    if (module == nullptr) {
        delete wizardPage_;
        wizardPage_ = nullptr;
        ShowError(error);
        return false;
    }
    if (auto* view = static_cast<QWidget*>(module->View())) {
        layout->addWidget(view);
        view->show();
    }
    actOpenWizard_->setEnabled(false);
    statusBar()->showMessage("Flow configuration wizard opened");
    return true;
}

FrameFlowCheckDialog* FrameMainWindow::FlowCheckDialog() const {
    return static_cast<FrameFlowCheckDialog*>(flowCheck_.data());
}

bool FrameMainWindow::FlowCheckWrittenParameters(QString qmvPath) {
    const int index = CurrentDevice();
    if (index < 0 || index >= host_.DeviceCount() || host_.Device(index).Parameters().empty())
        return false;
    if (qmvPath.isEmpty()) {
        qmvPath = chooseConfiguration
                      ? chooseConfiguration()
                      : QFileDialog::getOpenFileName(this, "Flow Check of Written Parameters",
                                                     QString(), "Configuration (*.qmv *.QMV)");
        if (qmvPath.isEmpty()) return false;
    }
    auto store = std::make_unique<qdf::clsExGlobalVars>();
    try {
        qdf::flowcheck::LoadConfigurationForCheck(*store, qmvPath.toStdString());
    } catch (const qdf::flowcheck::FlowCheckError& e) {
        ShowError(QString("No flow check: ") + e.what());
        return false;
    }
    delete flowCheck_;
    auto* dialog = new FrameFlowCheckDialog(host_.Device(index), std::move(store), qmvPath, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
    flowCheck_ = dialog;
    statusBar()->showMessage("Flow check of the written parameters shown");
    return true;
}

void FrameMainWindow::OnModuleClosed() {
    if (wizardPage_) {
        wizardPage_->deleteLater();
        wizardPage_ = nullptr;
    }
    tabs_->setCurrentIndex(1);
    RefreshParameters();
    statusBar()->showMessage("Flow configuration wizard closed");
}

void FrameMainWindow::ShowError(const QString& text) {
    // Through the frame's message service, so that a scripted run records it instead of
    // waiting on a box nobody answers.
    host_.MessageService().ShowMessage("QDF300 Device Frame", text.toStdString(),
                                       qdf::sdk::kMessageKindError, qdf::sdk::kMessageButtonsOk,
                                       qdf::sdk::kMessageAnswerOk);
}

void FrameMainWindow::AddDeviceDialog() {
    const QString path =
        QFileDialog::getOpenFileName(this, "Add device", QString(), "Device description (*.json)");
    if (path.isEmpty()) return;
    QString error;
    if (!host_.AddDeviceFile(path, &error)) ShowError(error);
    SelectDevice(host_.DeviceCount() - 1);
}

bool FrameMainWindow::OpenProjectFrom(const QString& path) {
    QString error;
    if (!host_.OpenProject(path, &error)) {
        ShowError(error);
        return false;
    }
    projectPath_ = path;
    return true;
}

bool FrameMainWindow::SaveProjectTo(const QString& path) {
    QString error;
    if (!host_.SaveProject(path, &error)) {
        ShowError(error);
        return false;
    }
    projectPath_ = path;
    statusBar()->showMessage("Project saved");
    return true;
}

void FrameMainWindow::OpenProjectDialog() {
    const QString path = QFileDialog::getOpenFileName(this, "Open project", QString(),
                                                      "Frame project (*.qdfproject)");
    if (!path.isEmpty()) OpenProjectFrom(path);
}

void FrameMainWindow::SaveProject() {
    if (projectPath_.isEmpty())
        SaveProjectAsDialog();
    else
        SaveProjectTo(projectPath_);
}

void FrameMainWindow::SaveProjectAsDialog() {
    QString path = QFileDialog::getSaveFileName(this, "Save project", projectPath_,
                                                "Frame project (*.qdfproject)");
    if (path.isEmpty()) return;
    if (!path.endsWith(".qdfproject")) path += ".qdfproject";
    SaveProjectTo(path);
}

void FrameMainWindow::UserSettingsDialog() {
    QDialog dlg(this);
    dlg.setWindowTitle("User");
    auto* form = new QFormLayout(&dlg);
    auto* level = new QSpinBox;
    level->setRange(0, 9);
    level->setValue(host_.user.level);
    level->setToolTip("0 observer, 1 operator, 2 maintenance, 3 planning engineer");
    auto* name = new QLineEdit(QString::fromStdString(host_.user.name));
    form->addRow("User level", level);
    form->addRow("User name", name);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, &dlg, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, &dlg, &QDialog::reject);
    if (dlg.exec() != QDialog::Accepted) return;
    host_.user.level = level->value();
    host_.user.name = name->text().toStdString();
}

}  // namespace qdf::frame
