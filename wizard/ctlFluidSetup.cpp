#include "ctlFluidSetup.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>
#include <span>

#include "CodeTables.h"
#include "ComponentTables.h"
#include "ModDefaults.h"
#include "PageSupport.h"
#include "TVRQDFFCWMain.h"
#include "clsExGlobalVars.h"

using namespace qdf::wizard;

namespace {

struct CategoryRow {
    std::int32_t code;
    std::string_view text;
    std::int32_t fluidType;
};

// In list order within each type. The texts are those the store's category strings hold.
constexpr CategoryRow kCategories[] = {
    {1, "Liquid (DIPPR)", 1},
    {2, "Pressurised Water", 1},
    {3, "Liquid (custom data table)", 1},
    {4, "Natural Gas", 2},
    {5, "Steam", 2},
    {6, "Gas (DIPPR)", 2},
    {7, "Gas (custom data table)", 2},
};

constexpr std::int32_t kPressurisedWater = 2;
constexpr std::string_view kPressurisedWaterText = "Pressurised Water";

// The first five method rows are the natural gas methods, the last two the steam methods.
const std::span<const qdf::CodeText> kNaturalGasMethods{qdf::kFluidNameMethods, 5};
const std::span<const qdf::CodeText> kSteamMethods{qdf::kFluidNameMethods + 5, 2};

QString Q(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string Text(const QComboBox* box) {
    return box->currentText().toStdString();
}

void FillMethods(QComboBox* box, std::span<const qdf::CodeText> methods) {
    for (const auto& m : methods) box->addItem(Q(m.text));
}

void FillComponents(QComboBox* box) {
    const qdf::ComponentTables& tables = qdf::CompoundTables();
    for (int i = 0; i < tables.Count(); ++i) box->addItem(QString::fromStdString(tables.Name(i)));
}

// The position of a code in a method list, or -1.
int MethodPosition(std::span<const qdf::CodeText> methods, std::int32_t code) {
    for (std::size_t i = 0; i < methods.size(); ++i)
        if (methods[i].code == code) return static_cast<int>(i);
    return -1;
}

int ComponentPosition(std::int32_t id) {
    const qdf::ComponentTables& tables = qdf::CompoundTables();
    for (int i = 0; i < tables.Count(); ++i)
        if (tables.Id(i) == id) return i;
    return -1;
}

std::int32_t MethodCode(const std::string& name) {
    // A custom name found nowhere writes the code the lookup leaves (0).
    return qdf::GetMethodCode(name, &qdf::CompoundTables());
}

}  // namespace

ctlFluidSetup::ctlFluidSetup(QWidget* parent)
    : ctlPage(parent), m_LoadedCategory(qdf::kNotEntered) {
    setObjectName(QStringLiteral("ctlFluidSetup1"));
    auto* grid = new QGridLayout(this);
    AddAutoSequence(grid, 3, QStringLiteral("lblFluidType"));

    auto* right = new QVBoxLayout;
    auto* title = new QLabel(QStringLiteral("FLUID TYPE SETUP"), this);
    title->setObjectName(QStringLiteral("lblTitle"));
    right->addWidget(title);

    auto* frame = new QGroupBox(QStringLiteral("Fluid Setup"), this);
    frame->setObjectName(QStringLiteral("fraFluidSetup"));
    auto* form = new QGridLayout(frame);
    optGasSteam = new QRadioButton(QStringLiteral("Gas or Steam"), frame);
    optGasSteam->setObjectName(QStringLiteral("optGasSteam"));
    optLiquid = new QRadioButton(QStringLiteral("Liquid"), frame);
    optLiquid->setObjectName(QStringLiteral("optLiquid"));
    auto* options = new QHBoxLayout;
    options->addWidget(optGasSteam);
    options->addWidget(optLiquid);
    options->addStretch();
    form->addLayout(options, 0, 0, 1, 2);

    cboCategory = new QComboBox(frame);
    cboCategory->setObjectName(QStringLiteral("cboCategory"));
    cboName = new QComboBox(frame);
    cboName->setObjectName(QStringLiteral("cboName"));
    cboName->setMaxVisibleItems(20);
    txtMethod = new QLineEdit(frame);
    txtMethod->setObjectName(QStringLiteral("txtMethod"));
    auto* lblCategory = new QLabel(QStringLiteral("Category:"), frame);
    lblCategory->setObjectName(QStringLiteral("lblCategory"));
    auto* lblName = new QLabel(QStringLiteral("Name/Method:"), frame);
    lblName->setObjectName(QStringLiteral("lblName"));
    form->addWidget(lblCategory, 1, 0);
    form->addWidget(cboCategory, 1, 1);
    form->addWidget(lblName, 2, 0);
    // The list and the box share one place; the category decides which is shown.
    form->addWidget(cboName, 2, 1);
    form->addWidget(txtMethod, 2, 1);
    form->setColumnStretch(1, 1);
    txtMethod->hide();
    right->addWidget(frame);
    right->addStretch();
    grid->addLayout(right, 0, 1);
    grid->setColumnStretch(1, 1);

    cmdNext = AddPageButtons(grid, QStringLiteral("cmdNext"), QStringLiteral("Next >"),
                             [this] { cmdNext_Click(); });

    connect(optGasSteam, &QRadioButton::clicked, this, [this] { optGasSteam_Click(); });
    connect(optLiquid, &QRadioButton::clicked, this, [this] { optLiquid_Click(); });
    connect(cboCategory, &QComboBox::currentIndexChanged, this, [this] { cboCategory_Click(); });
}

qdf::clsExGlobalVars* ctlFluidSetup::Initialize(qdf::clsExGlobalVars* store) {
    ctlPage::Initialize(store);
    if (store_) store_->Gbl_DoInitialize = qdf::kFalse;
    return store_;
}

void ctlFluidSetup::ClearLists() {
    const QSignalBlocker block(cboCategory);
    cboCategory->clear();
    cboName->clear();
}

std::int32_t ctlFluidSetup::CategoryCode(std::string_view text) {
    for (const auto& row : kCategories)
        if (row.text == text) return row.code;
    return qdf::kNotEntered;
}

bool ctlFluidSetup::DebugMode() const {
    return store_ && store_->Mgt_DebugModeFlag == 1;
}

void ctlFluidSetup::FillCategories(std::int32_t fluidType) {
    const QSignalBlocker block(cboCategory);
    cboCategory->clear();
    for (const auto& row : kCategories) {
        if (row.fluidType != fluidType) continue;
        // Pressurised water is a debugging aid, not offered to users.
        if (row.code == kPressurisedWater && !DebugMode()) continue;
        cboCategory->addItem(Q(row.text));
    }
    cboCategory->setCurrentIndex(-1);
}

void ctlFluidSetup::SetFluidType(bool gasSteam, bool liquid) {
    // Both options off is a state of its own (an unsupported stored type), which exclusive
    // buttons cannot reach.
    optGasSteam->setAutoExclusive(false);
    optLiquid->setAutoExclusive(false);
    optGasSteam->setChecked(gasSteam);
    optLiquid->setChecked(liquid);
    optGasSteam->setAutoExclusive(true);
    optLiquid->setAutoExclusive(true);
    m_GasSteam = gasSteam;
    m_Liquid = liquid;
}

void ctlFluidSetup::optGasSteam_Click() {
    SetFluidType(true, false);
    FillCategories(2);
    cboName->clear();
    txtMethod->clear();
}

void ctlFluidSetup::optLiquid_Click() {
    SetFluidType(false, true);
    FillCategories(1);
    cboName->clear();
    txtMethod->clear();
}

void ctlFluidSetup::ShowMethodBox(bool show) {
    txtMethod->setVisible(show);
    cboName->setVisible(!show);
}

void ctlFluidSetup::cboCategory_Click() {
    const std::string category = Text(cboCategory);
    const std::int32_t code = CategoryCode(category);
    switch (code) {
        case 4:
        case 5:
        case 1:
        case 6:
            cboName->clear();
            if (code == 4)
                FillMethods(cboName, kNaturalGasMethods);
            else if (code == 5)
                FillMethods(cboName, kSteamMethods);
            else
                FillComponents(cboName);
            cboName->setCurrentIndex(-1);
            ShowMethodBox(false);
            txtMethod->clear();
            return;
        case 7:
            ShowMethodBox(true);
            txtMethod->clear();
            // Ranges and tables entered for a liquid mean nothing for a gas table.
            if (store_ && m_LoadedCategory >= 1 && m_LoadedCategory <= 3) {
                qdf::ResetOperatingRange(*store_);
                qdf::ResetReferenceProperties(*store_);
                qdf::ResetPropertyTables(*store_);
            }
            return;
        case 3:
            ShowMethodBox(true);
            txtMethod->clear();
            // A liquid table has no pressures: only the temperatures go.
            if (store_ && m_LoadedCategory >= 4 && m_LoadedCategory <= 7) {
                qdf::ResetOperatingTemperature(*store_);
                qdf::ResetReferenceProperties(*store_);
                qdf::ResetPropertyTables(*store_);
            }
            return;
        case kPressurisedWater:
            ShowMethodBox(true);
            txtMethod->setText(Q(kPressurisedWaterText));
            return;
        default:
            return;
    }
}

bool ctlFluidSetup::SelectCategory(std::int32_t code) {
    std::string_view text;
    for (const auto& row : kCategories)
        if (row.code == code) text = row.text;
    const int position = text.empty() ? -1 : cboCategory->findText(Q(text));
    {
        const QSignalBlocker block(cboCategory);
        cboCategory->setCurrentIndex(position);
    }
    if (position < 0) return false;
    cboCategory_Click();
    return true;
}

void ctlFluidSetup::UpdateImportedVars() {
    if (!store_) return;
    cboCategory_Click();
    LoadFromStore();
    StartBlink();
}

void ctlFluidSetup::LoadFromStore() {
    if (!store_) return;
    const qdf::clsExGlobalVars& s = *store_;
    m_LoadedCategory = s.UI_FluidCat;

    if (s.UI_FluidType == 1 || s.UI_FluidType == 2) {
        if (s.UI_FluidType == 1)
            optLiquid_Click();
        else
            optGasSteam_Click();
        if (s.UI_FluidCat != qdf::kNotEntered && !SelectCategory(s.UI_FluidCat))
            Notify(qdf::kTitleInformation,
                   "Fluid category is not supported by this software version");
    } else {
        SetFluidType(false, false);
        ClearLists();
        txtMethod->clear();
        Notify(qdf::kTitleInformation, "Fluid type is not supported by this software version");
    }

    const std::string category = Text(cboCategory);
    if (!s.UI_ChemID.empty()) {
        ShowMethodBox(true);
        if (category == "Gas (custom data table)" || category == "Liquid (custom data table)")
            txtMethod->setText(QString::fromStdString(s.UI_ChemID));
        return;
    }

    ShowMethodBox(false);
    int position = -1;
    bool lookedUp = true;
    switch (CategoryCode(category)) {
        case 4:
            position = MethodPosition(kNaturalGasMethods, s.UI_FluidNameMethodCode);
            break;
        case 5:
            position = MethodPosition(kSteamMethods, s.UI_FluidNameMethodCode);
            break;
        case 1:
        case 6:
            position = ComponentPosition(s.UI_FluidNameMethodCode);
            break;
        case 3:
            ShowMethodBox(true);
            txtMethod->setText(QString::fromStdString(s.UI_ChemID));
            lookedUp = false;
            break;
        case kPressurisedWater:
            ShowMethodBox(true);
            txtMethod->setText(QString::fromStdString(s.UI_FluidName));
            lookedUp = false;
            break;
        default:
            lookedUp = false;
            if (category.empty()) {
                const QSignalBlocker block(cboCategory);
                cboCategory->setCurrentIndex(-1);
                cboName->setCurrentIndex(-1);
            }
            break;
    }
    if (!lookedUp) return;
    cboName->setCurrentIndex(position);
    if (position < 0)
        Notify(qdf::kTitleInformation,
               "Fluid name/method is not supported by this software version");
}

void ctlFluidSetup::cmdNext_Click() {
    if (!store_) return;
    if (!optGasSteam->isChecked() && !optLiquid->isChecked())
        return Refuse("Please make a selection of fluid type");
    if (cboCategory->currentText().isEmpty())
        return Refuse("Please make a selection of fluid category", cboCategory);
    if (!cboName->isHidden() && cboName->currentText().isEmpty())
        return Refuse("Please make a selection of fluid name", cboName);
    if (!txtMethod->isHidden() && txtMethod->text().isEmpty())
        return Refuse("Please fill out method name", txtMethod);

    qdf::clsExGlobalVars& s = *store_;
    const std::string category = Text(cboCategory);
    s.UI_FluidType = m_Liquid ? 1 : 2;
    s.UI_FluidCat = CategoryCode(category);
    s.Gbl_PhysicalPropertyCategory = category;
    const std::string method = txtMethod->text().toStdString();
    if (!method.empty()) {
        s.UI_FluidName = method;
        s.UI_ChemID = method;
        s.UI_FluidNameMethodCode = MethodCode(s.UI_FluidName);
        if (method == kPressurisedWaterText) s.UI_ChemID.clear();
    } else {
        s.UI_FluidName = Text(cboName);
        s.UI_ChemID.clear();
        s.UI_FluidNameMethodCode = MethodCode(s.UI_FluidName);
    }
    Fork();
}

void ctlFluidSetup::Fork() {
    qdf::clsExGlobalVars& s = *store_;
    TVRQDFFCWMain* main = Main();
    const std::string& name = s.UI_FluidName;
    const std::string& category = s.Gbl_PhysicalPropertyCategory;
    auto naturalGas = [&](void (TVRQDFFCWMain::*next)()) {
        s.Gbl_PhysicalPropertyName = name;
        s.Gbl_OperatingRangeSetupMethod = name;
        s.Gbl_OperatingRangeSetupCategory = category;
        if (main) (main->*next)();
    };

    // The detail page serves both composition methods; only this name tells them apart.
    if (name == "AGA8 Detail Characterization Method" ||
        name == "ISO12213 molar-composition analysis") {
        s.Gbl_Aga8DetailMethodName = name;
        return naturalGas(&TVRQDFFCWMain::SwitchToNaturalGasSetupAga);
    }
    if (name == "AGA8 Gross Characterization Method 1")
        return naturalGas(&TVRQDFFCWMain::SwitchToNaturalGasSetupGross1);
    if (name == "AGA8 Gross Characterization Method 2")
        return naturalGas(&TVRQDFFCWMain::SwitchToNaturalGasSetupGross2);
    if (name == "ISO12213 physical properties")
        return naturalGas(&TVRQDFFCWMain::SwitchToNaturalGasSetupISO);
    if (name == "Superheated and Saturated Steam") {
        s.Gbl_OperatingRangeSetupMethod = name;
        s.Gbl_PhysicalPropertyName = name;
        s.Gbl_OperatingRangeSetupCategory = "Steam";
        return GoForward("ctlFluidSetup", "ctlOperatingRangeSetup");
    }
    if (name == "Saturated steam") {
        s.Gbl_PhysicalPropertyName = name;
        if (main) main->SwitchToOperatingRangeSatSteam();
        return;
    }
    switch (s.UI_FluidCat) {
        case 1:
            s.Gbl_PhysicalPropertyName = s.UI_FluidName;
            s.Gbl_OperatingRangeSetupLiquid = s.UI_FluidName;
            s.Gbl_OperatingRangeSetupLiquidCategory = category;
            if (main) main->SwitchToOperatingRangeLiquid();
            return;
        case 2:
            s.Gbl_PhysicalPropertyName = s.UI_FluidName;
            s.Gbl_OperatingRangeSetupMethod = s.UI_FluidName;
            s.Gbl_OperatingRangeSetupCategory = category;
            return GoForward("ctlFluidSetup", "ctlOperatingRangeSetup");
        case 3:
            s.Gbl_PhysicalPropertyName = s.UI_ChemID;
            s.Gbl_OperatingRangeSetupLiquidCategory = category;
            s.Gbl_OperatingRangeSetupLiquid = s.UI_FluidName;
            if (main) main->SwitchToOperatingRangeLiquid();
            return;
        case 6:
            s.Gbl_OperatingRangeSetupMethod = s.UI_FluidName;
            s.Gbl_PhysicalPropertyName = s.UI_FluidName;
            s.Gbl_OperatingRangeSetupCategory = "Gas (DIPPR)";
            return GoForward("ctlFluidSetup", "ctlOperatingRangeSetup");
        case 7:
            s.Gbl_PhysicalPropertyName = s.UI_ChemID;
            s.Gbl_OperatingRangeSetupMethod = s.UI_ChemID;
            s.Gbl_OperatingRangeSetupCategory = "Gas (custom data table)";
            return GoForward("ctlFluidSetup", "ctlOperatingRangeSetup");
        default:
            return;
    }
}

void ctlFluidSetup::cmdBack_Click() {
    // Back stores nothing: choices on this page are dropped.
    if (Main()) Main()->SwitchToPrimaryElementSetup();
}
