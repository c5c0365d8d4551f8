#include "ctlPhysicalPropertySetup.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>
#include <stdexcept>

#include "Fits.h"
#include "ModUnit.h"
#include "MvConfig.h"
#include "NumberText.h"
#include "PageSupport.h"
#include "PhysicalProp.h"
#include "clsExGlobalVars.h"

using namespace qdf::wizard;
using qdf::kNotEntered;

namespace {

constexpr std::int32_t kKgM3 = 92;
constexpr std::int32_t kPaSec = 0;
constexpr const char* kSaturatedSteam = "Saturated steam";

// A value with a decimal point in its plain text is shown by the pattern; whole numbers and
// texts without a point stand as they are.
QString Shown(double v, std::string_view pattern) {
    const std::string plain = qdf::NumToText(v);
    if (plain.find('.') == std::string::npos) return QString::fromStdString(plain);
    return QString::fromStdString(qdf::FormatNumber(v, pattern));
}

QString BoxText(double v) {
    return v == kNotEntered ? QString() : Shown(v, "###0.########");
}
QString DensityGridText(double v) {
    return Shown(v, "###0.########");
}
QString DensityEntryText(double v) {
    return Shown(v, "##0.########");
}
// Viscosities are small: the exponent form of the plain text keeps its exponent.
QString ViscosityGridText(double v) {
    const std::string plain = qdf::NumToText(v);
    if (plain.find('.') == std::string::npos) return QString::fromStdString(plain);
    if (plain.find("E-") != std::string::npos)
        return QString::fromStdString(qdf::FormatNumber(v, "#.########E-00"));
    if (plain.find("E+") != std::string::npos)
        return QString::fromStdString(qdf::FormatNumber(v, "#.########E+00"));
    return QString::fromStdString(qdf::FormatNumber(v, "#####0.########"));
}

QString DensityUnitText(std::int32_t code) {
    return code == kKgM3 ? QStringLiteral("kg/m3") : QStringLiteral("lb/ft3");
}

double DensityShown(double kgM3, std::int32_t unit) {
    return unit == kKgM3 ? kgM3 : qdf::KgM3ToLbFt3(kgM3);
}
double DensityStandard(double shown, std::int32_t unit) {
    return unit == kKgM3 ? shown : qdf::LbFt3ToKgM3(shown);
}
double ViscosityShown(double paS, std::int32_t unit) {
    return unit == kPaSec ? paS : qdf::PaSToLbFtS(paS);
}
double ViscosityStandard(double shown, std::int32_t unit) {
    return unit == kPaSec ? shown : qdf::LbFtSToPaS(shown);
}

double TemperatureIn(double v, std::int32_t from, std::int32_t to) {
    if (from == to) return v;
    return KelvinToTemperatureUnit(qdf::TemperatureCodeToStandard(v, from), to);
}

QString PressureUnitText(std::int32_t code) {
    switch (code) {
        case 0:
            return QStringLiteral("kPa abs");
        case 1:
            return QStringLiteral("bar abs");
        case 2:
            return QStringLiteral("psi abs");
        case 3:
            return QStringLiteral("kPa gauge");
        case 4:
            return QStringLiteral("bar gauge");
        case 5:
            return QStringLiteral("psi gauge");
        default:
            return QString();
    }
}

// Sub-code 8 is the solver's rank failure: the grid's points are too close to tell apart.
std::string FitFailureText(const qdf::clsExGlobalVars& s) {
    if (s.Gbl_ErrorSubCode == 8)
        return "The range that specified in the step of Fluid Operating Range Setup is too narrow. "
               "Expand the range of pressure or temperature";
    return "Transmitter parameter calculation error has occured. Please redefine pressure and "
           "output ranges";
}

QTableWidgetItem* Cell(const QString& text) {
    auto* item = new QTableWidgetItem(text);
    // Entries go through the floating box, never through the grid's own editor.
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

QTableWidget* Grid(QWidget* parent, const char* name) {
    auto* grid = new QTableWidget(parent);
    grid->setObjectName(QString::fromLatin1(name));
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->verticalHeader()->hide();
    grid->verticalHeader()->setDefaultSectionSize(20);
    grid->horizontalHeader()->setHighlightSections(false);
    return grid;
}

// The heading row is row 0 of the grid, so rows count from 1 below it as the entries do; it
// stays hidden and the fixed header shows the same texts while the rows scroll.
void SetHeadings(QTableWidget* grid, const QStringList& headings) {
    grid->setColumnCount(static_cast<int>(headings.size()));
    grid->setHorizontalHeaderLabels(headings);
    for (int c = 0; c < headings.size(); ++c) grid->setItem(0, c, Cell(headings[c]));
    grid->setRowHidden(0, true);
    QHeaderView* header = grid->horizontalHeader();
    header->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    for (int c = 1; c < headings.size(); ++c) header->setSectionResizeMode(c, QHeaderView::Stretch);
}

// One line of the value frame: the quantity, "Value:", the box and its unit.
void ValueRow(QGridLayout* grid, int row, const QString& quantity, QLineEdit* box, QLabel* unit) {
    QWidget* parent = box->parentWidget();
    grid->addWidget(new QLabel(quantity, parent), row, 0);
    grid->addWidget(new QLabel(QStringLiteral("Value:"), parent), row, 1);
    grid->addWidget(box, row, 2);
    if (unit) grid->addWidget(unit, row, 3);
}

}  // namespace

ctlPhysicalPropertySetup::ctlPhysicalPropertySetup(QWidget* parent) : ctlPage(parent) {
    setObjectName(QStringLiteral("ctlPhysicalPropertySetup1"));
    auto* grid = new QGridLayout(this);
    AddAutoSequence(grid, 6, QStringLiteral("lblPhysicalProperty"));

    auto* right = new QVBoxLayout;
    auto* title = new QLabel(QStringLiteral("FLUID PHYSICAL PROPERTY SETUP"), this);
    title->setObjectName(QStringLiteral("lblTitle"));
    right->addWidget(title);

    auto* fluid = new QHBoxLayout;
    lblPhysicalPropertyCategory = new QLabel(this);
    lblPhysicalPropertyCategory->setObjectName(QStringLiteral("lblPhysicalPropertyCategory"));
    lblPhysicalPropertyName = new QLabel(this);
    lblPhysicalPropertyName->setObjectName(QStringLiteral("lblPhysicalPropertyName"));
    fluid->addWidget(new QLabel(QStringLiteral("Category:"), this));
    fluid->addWidget(lblPhysicalPropertyCategory);
    fluid->addSpacing(24);
    fluid->addWidget(new QLabel(QStringLiteral("Name/Method:"), this));
    fluid->addWidget(lblPhysicalPropertyName, 1);
    right->addLayout(fluid);

    auto* density = new QGroupBox(QStringLiteral("Density "), this);
    density->setObjectName(QStringLiteral("fraDensity"));
    auto* densityLayout = new QVBoxLayout(density);
    auto* densityUnits = new QHBoxLayout;
    cboDensUnit = UnitList(density, "cboDensUnit");
    cboTempUnit = UnitList(density, "cboTempUnit");
    lblTempUnit = new QLabel(QStringLiteral("Temp Unit:"), density);
    lblTempUnit->setObjectName(QStringLiteral("lblTempUnit"));
    cboDataPoint = UnitList(density, "cboDataPoint");
    LblDataPoint = new QLabel(QStringLiteral("Data points:"), density);
    LblDataPoint->setObjectName(QStringLiteral("LblDataPoint"));
    densityUnits->addWidget(new QLabel(QStringLiteral("Units: "), density));
    densityUnits->addWidget(cboDensUnit);
    densityUnits->addSpacing(8);
    densityUnits->addWidget(lblTempUnit);
    densityUnits->addWidget(cboTempUnit);
    densityUnits->addSpacing(8);
    densityUnits->addWidget(LblDataPoint);
    densityUnits->addWidget(cboDataPoint);
    densityUnits->addStretch();
    densityLayout->addLayout(densityUnits);
    FlexDensity = Grid(density, "FlexDensity");
    densityLayout->addWidget(FlexDensity);
    right->addWidget(density, 1);

    auto* viscosity = new QGroupBox(QStringLiteral("Viscosity"), this);
    viscosity->setObjectName(QStringLiteral("fraViscosity"));
    auto* viscosityLayout = new QHBoxLayout(viscosity);
    FlexViscosity = Grid(viscosity, "FlexViscosity");
    viscosityLayout->addWidget(FlexViscosity, 1);
    auto* viscosityUnits = new QVBoxLayout;
    cboVisUnit = UnitList(viscosity, "cboVisUnit");
    viscosityUnits->addWidget(new QLabel(QStringLiteral("Units:"), viscosity));
    viscosityUnits->addWidget(cboVisUnit);
    viscosityUnits->addStretch();
    viscosityLayout->addLayout(viscosityUnits);
    right->addWidget(viscosity);

    auto* values = new QGridLayout;
    txtRefDensity = NumberBox(this, "txtRefDensity");
    lblRefDens = new QLabel(this);
    lblRefDens->setObjectName(QStringLiteral("lblRefDens"));
    txtIsenExp = NumberBox(this, "txtIsenExp");
    txtMolWeight = NumberBox(this, "txtMolWeight");
    ValueRow(values, 0, QStringLiteral("Reference density (Standard or Normal)"), txtRefDensity,
             lblRefDens);
    ValueRow(values, 1, QStringLiteral("Isentropic Exponent"), txtIsenExp, nullptr);
    ValueRow(values, 2, QStringLiteral("Molecular Weight"), txtMolWeight, nullptr);
    values->setColumnStretch(3, 1);
    values->setVerticalSpacing(2);
    right->addLayout(values);
    grid->addLayout(right, 0, 1);
    grid->setColumnStretch(1, 1);

    cmdNext = AddPageButtons(grid, QStringLiteral("cmdNext"), QStringLiteral("Next >"),
                             [this] { cmdNext_Click(); });

    // The floating boxes live on the grids' viewports, so a cell's rectangle places them.
    txtDataEntry = NumberBox(FlexDensity->viewport(), "txtDataEntry");
    txtDataEntryVis = NumberBox(FlexViscosity->viewport(), "txtDataEntryVis");
    for (QLineEdit* box : {txtDataEntry, txtDataEntryVis}) {
        box->hide();
        box->setAlignment(Qt::AlignRight);
        box->installEventFilter(this);
    }
    for (QTableWidget* g : {FlexDensity, FlexViscosity}) {
        g->installEventFilter(this);
        connect(g, &QTableWidget::cellClicked, this, [this, g](int row, int column) {
            LeaveEditBox();
            const QTableWidgetItem* item = g->item(row, column);
            OpenEditBox(g, row, column, item ? item->text() : QString());
        });
        connect(g, &QTableWidget::itemChanged, this,
                [this, g](QTableWidgetItem* item) { CellChanged(g, item->row(), item->column()); });
    }

    connect(cboDensUnit, &QComboBox::currentIndexChanged, this, [this] { DensityUnitChanged(); });
    connect(cboTempUnit, &QComboBox::currentIndexChanged, this,
            [this] { TemperatureUnitChanged(); });
    connect(cboVisUnit, &QComboBox::currentIndexChanged, this, [this] { ViscosityUnitChanged(); });
    connect(cboDataPoint, &QComboBox::currentIndexChanged, this, [this] {
        if (!filling_) cboDataPoint_Click();
    });
}

qdf::clsExGlobalVars* ctlPhysicalPropertySetup::Initialize(qdf::clsExGlobalVars* store) {
    ctlPage::Initialize(store);
    Fill();
    return store_;
}

void ctlPhysicalPropertySetup::UpdateImportedVars() {
    Fill();
    if (store_) StartBlink();
}

void ctlPhysicalPropertySetup::ClearLists() {
    filling_ = true;
    cboDensUnit->clear();
    cboTempUnit->clear();
    cboVisUnit->clear();
    cboDataPoint->clear();
    filling_ = false;
}

// ---- Showing ----

bool ctlPhysicalPropertySetup::SaturatedSteam() const {
    return store_->UI_FluidName == kSaturatedSteam;
}

// Water's density depends on pressure: it has the gas grid.
bool ctlPhysicalPropertySetup::GasGrid() const {
    return store_->UI_FluidType == 2 || store_->UI_FluidCat == 2;
}

bool ctlPhysicalPropertySetup::CustomTables() const {
    return store_->UI_FluidCat == 3 || store_->UI_FluidCat == 7;
}

int ctlPhysicalPropertySetup::ViscosityRowCount() const {
    return GasGrid() ? store_->Mgt_GasVisTempDiv : store_->Mgt_LqdVisTempDiv;
}

std::int32_t ctlPhysicalPropertySetup::GridTemperatureUnit() const {
    if (SaturatedSteam()) return store_->UI_RangeTUnit;
    return SelectedUnit(cboTempUnit).value_or(store_->UI_RangeTUnit);
}

void ctlPhysicalPropertySetup::Fill() {
    if (!store_) return;
    const qdf::clsExGlobalVars& s = *store_;
    filling_ = true;
    lblPhysicalPropertyCategory->setText(QString::fromStdString(s.Gbl_PhysicalPropertyCategory));
    lblPhysicalPropertyName->setText(QString::fromStdString(s.Gbl_PhysicalPropertyName));
    if (s.UI_FluidType != 2 && s.UI_FluidCat != 2)
        dataPointCount = s.Mgt_LqdDensTempDiv;
    else
        dataPointCount = s.Mgt_GasDensPressDiv * s.Mgt_GasDensTempDiv;
    const bool steam = SaturatedSteam();
    cboTempUnit->setVisible(!steam);
    lblTempUnit->setVisible(!steam);
    FillUnitLists();
    ShowReferenceDensity();
    ShowIsentropicExponent();
    BuildDensityGrid();
    BuildViscosityGrid();
    HideEditBoxes();
    ShowMolecularWeight();
    filling_ = false;
}

void ctlPhysicalPropertySetup::FillUnitLists() {
    const qdf::clsExGlobalVars& s = *store_;
    FillUnitList(cboDensUnit, kDensityUnitList, s.strCorvanePCLocation);
    SelectUnit(cboDensUnit, s.UI_DensUnit);
    FillUnitList(cboTempUnit, kTemperatureUnitList, s.strCorvanePCLocation);
    SelectUnit(cboTempUnit, s.UI_RangeTUnit);
    FillUnitList(cboVisUnit, kViscosityUnitList, s.strCorvanePCLocation);
    SelectUnit(cboVisUnit, s.UI_ViscUnit);

    // Only a library gas has a finer density grid to offer.
    cboDataPoint->clear();
    const bool dippr = s.UI_FluidCat == 6;
    if (dippr) {
        cboDataPoint->addItem(QStringLiteral("12 (3 x 4)"));
        cboDataPoint->addItem(QStringLiteral("63 (7 x 9)"));
    }
    cboDataPoint->setCurrentIndex(!dippr                   ? -1
                                  : s.Mgt_GasDensDiv == 12 ? 0
                                  : s.Mgt_GasDensDiv == 63 ? 1
                                                           : -1);
    cboDataPoint->setVisible(dippr);
    LblDataPoint->setVisible(dippr);
}

void ctlPhysicalPropertySetup::ShowReferenceDensity() {
    const qdf::clsExGlobalVars& s = *store_;
    double shown = kNotEntered;
    if (s.UI_RefDensValueStandard != kNotEntered)
        shown = DensityShown(s.UI_RefDensValueStandard, s.UI_DensUnit);
    else if (s.UI_RefDensValue != kNotEntered)
        shown = s.UI_RefDensValue;
    refDensShown_ = BoxText(shown);
    txtRefDensity->setText(refDensShown_);
    const auto unit = SelectedUnit(cboDensUnit);
    lblRefDens->setText(unit ? DensityUnitText(*unit) : QString());
}

void ctlPhysicalPropertySetup::ShowIsentropicExponent() {
    isenExpShown_ = BoxText(store_->UI_IsenExpValue);
    txtIsenExp->setText(isenExpShown_);
    // A liquid has no isentropic exponent to give: the box is closed and greyed.
    const bool open = store_->UI_FluidType == 2;
    txtIsenExp->setReadOnly(!open);
    txtIsenExp->setEnabled(open);
}

void ctlPhysicalPropertySetup::ShowMolecularWeight() {
    qdf::clsExGlobalVars& s = *store_;
    double mw = kNotEntered;
    if (qdf::GetMolecularWeight(s, s.UI_FluidType, s.UI_FluidCat, s.UI_FluidName, mw,
                                s.UI_RangeT1Standard, s.UI_RangeP1Standard) != 0)
        mw = kNotEntered;
    txtMolWeight->setText(BoxText(mw));
}

QString ctlPhysicalPropertySetup::TemperatureHeading(bool viscosityGrid) const {
    std::optional<std::int32_t> unit = SaturatedSteam()
                                           ? std::optional<std::int32_t>(store_->UI_RangeTUnit)
                                           : SelectedUnit(cboTempUnit);
    if (!viscosityGrid && !SelectedUnit(cboDensUnit)) unit.reset();
    // The viscosity grid's headings have their own blanks.
    switch (unit.value_or(-1)) {
        case qdf::kHartDegC:
            return viscosityGrid ? QStringLiteral("Temperature(deg C)")
                                 : QStringLiteral("Temperature (deg C)");
        case qdf::kHartDegF:
            return viscosityGrid ? QStringLiteral("Temperature(deg F)")
                                 : QStringLiteral("Temperature (deg F)");
        case qdf::kHartKelvin:
            return QStringLiteral("Temperature (K)");
        default:
            return viscosityGrid ? QStringLiteral("Temperature( )")
                                 : QStringLiteral("Temperature ( )");
    }
}

QString ctlPhysicalPropertySetup::DensityCellText(int row, int column) const {
    const qdf::clsExGlobalVars& s = *store_;
    if (column == 0) return QString::number(row);
    const int k = row - 1;
    const int densityColumn = GasGrid() ? 3 : 2;
    if (column == densityColumn)
        return DensityGridText(DensityShown(s.UI_DensStandard[k], s.UI_DensUnit));
    const std::int32_t tUnit = GridTemperatureUnit();
    if (SaturatedSteam()) {
        // The steam grid is a product of the pressure list and the saturation temperatures.
        const int nP = std::max(1, s.Mgt_GasDensPressDiv);
        if (column == 1) {
            const std::int32_t pUnit = s.UI_RangePUnit;
            double pa = s.UI_DensAbsPressStandard[k % nP];
            if (qdf::IsGaugePressureCode(pUnit)) pa -= s.UI_AtmPressStandard;
            return DensityGridText(KPaToPressureUnit(qdf::PaToKPa(pa), pUnit));
        }
        return DensityGridText(KelvinToTemperatureUnit(s.UI_DensTempStandard[k / nP], tUnit));
    }
    const bool temperature = GasGrid() ? column == 2 : column == 1;
    if (temperature)
        return DensityGridText(TemperatureIn(s.UI_DensTemp[k], s.UI_RangeTUnit, tUnit));
    return DensityGridText(s.UI_DensAbsPress[k]);
}

QString ctlPhysicalPropertySetup::ViscosityCellText(int row) const {
    const qdf::clsExGlobalVars& s = *store_;
    const int k = row - 1;
    return ViscosityGridText(ViscosityShown(s.UI_ViscStandard[k], s.UI_ViscUnit));
}

void ctlPhysicalPropertySetup::BuildDensityGrid() {
    if (!store_) return;
    const qdf::clsExGlobalVars& s = *store_;
    if (dataPointCount < 4) return;
    const int rows = std::min(dataPointCount, static_cast<int>(s.UI_Dens.size()));
    // Without a density unit every heading goes without its unit.
    const bool units = SelectedUnit(cboDensUnit).has_value();
    const QString pressureUnit = units ? PressureUnitText(s.UI_RangePUnit) : QString();
    QStringList headings{QStringLiteral("No")};
    if (GasGrid())
        headings << (pressureUnit.isEmpty() ? QStringLiteral("Pressure ( )")
                                            : QStringLiteral("Pressure (") + pressureUnit + ')');
    headings << TemperatureHeading(false)
             << (units ? QStringLiteral("Density (") + DensityUnitText(s.UI_DensUnit) + ')'
                       : QStringLiteral("Density ( )"));

    const bool was = filling_;
    filling_ = true;
    FlexDensity->clear();
    FlexDensity->setRowCount(rows + 1);
    SetHeadings(FlexDensity, headings);
    try {
        for (int r = 1; r <= rows; ++r)
            for (int c = 0; c < headings.size(); ++c)
                FlexDensity->setItem(r, c, Cell(DensityCellText(r, c)));
    } catch (const std::out_of_range&) {
        // A division count beyond the tables (a damaged file) shows the rows that exist.
    }
    filling_ = was;
}

void ctlPhysicalPropertySetup::BuildViscosityGrid() {
    if (!store_) return;
    const qdf::clsExGlobalVars& s = *store_;
    const int count = ViscosityRowCount();
    if (count < 4) return;
    const int rows = std::min(count, static_cast<int>(s.UI_Visc.size()));
    const auto unit = SelectedUnit(cboVisUnit);
    QString viscosityHeading = QStringLiteral("Viscosity ");
    viscosityHeading += !unit             ? QStringLiteral("( )")
                        : *unit == kPaSec ? QStringLiteral(" (Pa sec)")
                                          : QStringLiteral(" (lb/ft sec)");
    const QStringList headings{QStringLiteral("No"), TemperatureHeading(true), viscosityHeading};

    const bool was = filling_;
    filling_ = true;
    FlexViscosity->clear();
    FlexViscosity->setRowCount(rows + 1);
    SetHeadings(FlexViscosity, headings);
    // Tall enough for the usual four rows without a scroll bar; the density grid takes the rest.
    FlexViscosity->setFixedHeight(FlexViscosity->horizontalHeader()->sizeHint().height() +
                                  4 * FlexViscosity->verticalHeader()->defaultSectionSize() +
                                  2 * FlexViscosity->frameWidth());
    const std::int32_t tUnit = GridTemperatureUnit();
    try {
        for (int r = 1; r <= rows; ++r) {
            const int k = r - 1;
            // Saturated steam's table temperatures were converted by another unit: the
            // standard ones are read instead.
            const double t = SaturatedSteam()
                                 ? KelvinToTemperatureUnit(s.UI_ViscTempStandard[k], tUnit)
                                 : TemperatureIn(s.UI_ViscTemp[k], s.UI_RangeTUnit, tUnit);
            FlexViscosity->setItem(r, 0, Cell(QString::number(r)));
            FlexViscosity->setItem(r, 1, Cell(ViscosityGridText(t)));
            FlexViscosity->setItem(r, 2, Cell(ViscosityCellText(r)));
        }
    } catch (const std::out_of_range&) {
    }
    filling_ = was;
}

void ctlPhysicalPropertySetup::HideEditBoxes() {
    editRow_ = editColumn_ = -1;
    txtDataEntry->hide();
    txtDataEntryVis->hide();
}

// ---- Cell entry ----

ctlPhysicalPropertySetup::CellTarget ctlPhysicalPropertySetup::DensityCellTarget(
    std::int32_t fluidType, std::int32_t fluidCat, int row, int column) {
    if (row < 1) return CellTarget::None;
    if (fluidType == 2 && fluidCat == 7 && column == 1 && row <= 12) return CellTarget::Pressure;
    if ((fluidType == 2 || fluidCat == 2) && column == 3 && row <= 12) return CellTarget::Density;
    if (fluidType != 2 && fluidCat != 2 && column == 2 && row <= 4) return CellTarget::Density;
    return CellTarget::None;
}

ctlPhysicalPropertySetup::CellTarget ctlPhysicalPropertySetup::TargetOf(const QTableWidget* grid,
                                                                        int row, int column) const {
    if (!store_ || !CustomTables() || row >= grid->rowCount()) return CellTarget::None;
    if (grid == FlexDensity)
        return DensityCellTarget(store_->UI_FluidType, store_->UI_FluidCat, row, column);
    return row >= 1 && column == 2 ? CellTarget::Viscosity : CellTarget::None;
}

QLineEdit* ctlPhysicalPropertySetup::EditBoxOf(const QTableWidget* grid) const {
    return grid == FlexDensity ? txtDataEntry : txtDataEntryVis;
}

void ctlPhysicalPropertySetup::OpenEditBox(QTableWidget* grid, int row, int column,
                                           const QString& text) {
    if (TargetOf(grid, row, column) == CellTarget::None) return;
    HideEditBoxes();
    grid->setCurrentCell(row, column);
    grid->scrollTo(grid->model()->index(row, column));
    QLineEdit* box = EditBoxOf(grid);
    box->setGeometry(grid->visualRect(grid->model()->index(row, column)));
    box->setText(text);
    editRow_ = row;
    editColumn_ = column;
    box->show();
    box->raise();
    box->setFocus();
    box->selectAll();
}

void ctlPhysicalPropertySetup::CloseEditBox(QLineEdit* box) {
    // The row goes first: hiding moves the focus, and the focus rule must see a closed box.
    editRow_ = editColumn_ = -1;
    box->hide();
}

void ctlPhysicalPropertySetup::LeaveEditBox() {
    if (editRow_ < 0) return;
    QLineEdit* box = txtDataEntry->isVisible() ? txtDataEntry : txtDataEntryVis;
    QTableWidget* grid = box == txtDataEntry ? FlexDensity : FlexViscosity;
    Commit(grid, editRow_, editColumn_, box->text(), true);
    CloseEditBox(box);
}

bool ctlPhysicalPropertySetup::Commit(QTableWidget* grid, int row, int column, const QString& text,
                                      bool quiet) {
    const CellTarget target = TargetOf(grid, row, column);
    if (target == CellTarget::None) return true;
    const std::optional<double> value = qdf::ParseNumber(text.toStdString());
    if (!value) {
        if (!quiet) Notify(qdf::kTitleWizard, "Please enter a number");
        return false;
    }
    qdf::clsExGlobalVars& s = *store_;
    const int k = row - 1;
    const double v = *value;
    QString shown;
    try {
        switch (target) {
            case CellTarget::Pressure:
                s.UI_DensAbsPress[k] = v;
                shown = DensityEntryText(v);
                break;
            case CellTarget::Density:
                s.UI_Dens[k] = v;
                s.UI_DensStandard[k] = DensityStandard(v, s.UI_DensUnit);
                shown = DensityEntryText(v);
                break;
            case CellTarget::Viscosity:
                s.UI_Visc[k] = v;
                s.UI_ViscStandard[k] = ViscosityStandard(v, s.UI_ViscUnit);
                shown = ViscosityGridText(v);
                break;
            case CellTarget::None:
                break;
        }
    } catch (const std::out_of_range&) {
        return true;
    }
    const bool was = filling_;
    filling_ = true;
    if (QTableWidgetItem* item = grid->item(row, column))
        item->setText(shown);
    else
        grid->setItem(row, column, Cell(shown));
    filling_ = was;
    return true;
}

void ctlPhysicalPropertySetup::CommitAndMove(QLineEdit* box, int dRow, int dColumn) {
    QTableWidget* grid = box == txtDataEntry ? FlexDensity : FlexViscosity;
    const int row = editRow_, column = editColumn_;
    if (row < 0) return;
    if (!Commit(grid, row, column, box->text())) {
        box->setFocus();
        box->selectAll();
        return;
    }
    int r = row + dRow, c = column + dColumn;
    if (r < 1 || r >= grid->rowCount()) r = row;
    if (c < 1 || c >= grid->columnCount()) c = column;
    CloseEditBox(box);
    grid->setCurrentCell(r, c);
    grid->setFocus();
    if ((r != row || c != column) && TargetOf(grid, r, c) != CellTarget::None)
        OpenEditBox(grid, r, c, grid->item(r, c) ? grid->item(r, c)->text() : QString());
}

void ctlPhysicalPropertySetup::CellChanged(QTableWidget* grid, int row, int column) {
    if (filling_ || !store_) return;
    QTableWidgetItem* item = grid->item(row, column);
    if (!item) return;
    if (TargetOf(grid, row, column) != CellTarget::None && Commit(grid, row, column, item->text()))
        return;
    // Put back what the store holds: the grid is a view of it.
    QString text;
    try {
        if (row == 0)
            text = grid->horizontalHeaderItem(column) ? grid->horizontalHeaderItem(column)->text()
                                                      : QString();
        else if (grid == FlexDensity)
            text = DensityCellText(row, column);
        else if (column == 2)
            text = ViscosityCellText(row);
        else
            return BuildViscosityGrid();
    } catch (const std::out_of_range&) {
        return;
    }
    filling_ = true;
    item->setText(text);
    filling_ = false;
}

bool ctlPhysicalPropertySetup::eventFilter(QObject* watched, QEvent* event) {
    auto* box = qobject_cast<QLineEdit*>(watched);
    if (box && (box == txtDataEntry || box == txtDataEntryVis)) {
        if (event->type() == QEvent::KeyPress) {
            switch (static_cast<QKeyEvent*>(event)->key()) {
                case Qt::Key_Return:
                case Qt::Key_Enter:
                    CommitAndMove(box, 1, 0);
                    return true;
                case Qt::Key_Escape: {
                    QTableWidget* grid = box == txtDataEntry ? FlexDensity : FlexViscosity;
                    CloseEditBox(box);
                    grid->setFocus();
                    return true;
                }
                case Qt::Key_Left:
                    CommitAndMove(box, 0, -1);
                    return true;
                case Qt::Key_Up:
                    CommitAndMove(box, -1, 0);
                    return true;
                case Qt::Key_Right:
                    CommitAndMove(box, 0, 1);
                    return true;
                case Qt::Key_Down:
                    CommitAndMove(box, 1, 0);
                    return true;
                default:
                    break;
            }
        } else if (event->type() == QEvent::FocusOut && editRow_ >= 0 && box->isVisible()) {
            // Leaving the box for another control keeps a number quietly and drops anything
            // else; a message box or menu taking the focus leaves it open.
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
                LeaveEditBox();
        }
        return false;
    }
    auto* grid = qobject_cast<QTableWidget*>(watched);
    if (grid && (grid == FlexDensity || grid == FlexViscosity) &&
        event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        const int row = grid->currentRow(), column = grid->currentColumn();
        if (TargetOf(grid, row, column) == CellTarget::None) return false;
        const QString text = key->text();
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            OpenEditBox(grid, row, column,
                        grid->item(row, column) ? grid->item(row, column)->text() : QString());
            return true;
        }
        if (key->key() == Qt::Key_Backspace) {
            OpenEditBox(grid, row, column, QString());
            return true;
        }
        // Typing a number's first character starts a fresh entry with it.
        if (text.size() == 1 &&
            (text[0].isDigit() || text[0] == QChar(',') || text[0] == QChar('.'))) {
            OpenEditBox(grid, row, column, text);
            EditBoxOf(grid)->deselect();
            EditBoxOf(grid)->setCursorPosition(1);
            return true;
        }
    }
    return ctlPage::eventFilter(watched, event);
}

// ---- Units and data points ----

void ctlPhysicalPropertySetup::DensityUnitChanged() {
    if (filling_ || !store_) return;
    HideEditBoxes();
    qdf::clsExGlobalVars& s = *store_;
    const auto unit = SelectedUnit(cboDensUnit);
    if (unit) {
        const std::int32_t old = s.UI_DensUnit;
        s.UI_DensUnit = *unit;
        s.UI_RefDensUnit = *unit;
        // The reference density box follows the unit like the grid; an entry of the user's
        // is converted, a box left as shown is shown again from the standard value.
        if (txtRefDensity->text() == refDensShown_) {
            ShowReferenceDensity();
        } else if (BoxIsNumber(txtRefDensity)) {
            const double kgM3 = DensityStandard(BoxNumber(txtRefDensity), old);
            txtRefDensity->setText(BoxText(DensityShown(kgM3, *unit)));
        }
    }
    lblRefDens->setText(unit ? DensityUnitText(*unit) : QString());
    BuildDensityGrid();
}

void ctlPhysicalPropertySetup::TemperatureUnitChanged() {
    if (filling_ || !store_) return;
    HideEditBoxes();
    BuildDensityGrid();
    BuildViscosityGrid();
}

void ctlPhysicalPropertySetup::ViscosityUnitChanged() {
    if (filling_ || !store_) return;
    HideEditBoxes();
    if (const auto unit = SelectedUnit(cboVisUnit)) store_->UI_ViscUnit = *unit;
    BuildViscosityGrid();
}

void ctlPhysicalPropertySetup::cboDataPoint_Click() {
    if (!store_) return;
    qdf::clsExGlobalVars& s = *store_;
    if (s.UI_FluidCat != 6) {
        cboDataPoint->hide();
        LblDataPoint->hide();
        return;
    }
    switch (cboDataPoint->currentIndex()) {
        case 0:
            s.Mgt_GasDensDiv = 12;
            s.Mgt_GasDensTempDiv = 3;
            s.Mgt_GasDensPressDiv = 4;
            break;
        case 1:
            s.Mgt_GasDensDiv = 63;
            s.Mgt_GasDensTempDiv = 7;
            s.Mgt_GasDensPressDiv = 9;
            break;
        default:
            return;
    }
    HideEditBoxes();
    // The finer grid is a new calculation over the same range; its failures are told as the
    // range page and Next tell them.
    if (qdf::RunCalculation(s) != 0) {
        Notify(qdf::kTitleInformation,
               "There exists calculation error with the given input of pressure and "
               "temperature. Please fill out another value");
    } else {
        if (s.Gbl_ErrorCode == 890 && s.Gbl_ErrorSubCode == 5)
            Notify(qdf::kTitleInformation, s.Gbl_ErrorMessage);
        if ((s.Gbl_ErrorCode == 890 && s.Gbl_ErrorSubCode == 5) ||
            (s.Gbl_ErrorCode == 600 && s.Gbl_ErrorSubCode == 1)) {
            s.Gbl_ErrorCode = kNotEntered;
            s.Gbl_ErrorSubCode = kNotEntered;
        }
        if (qdf::RunFits(s) != 0) Notify(qdf::kTitleInformation, FitFailureText(s));
    }
    dataPointCount = s.Mgt_GasDensTempDiv * s.Mgt_GasDensPressDiv;
    BuildDensityGrid();
}

// ---- Next and Back ----

void ctlPhysicalPropertySetup::cmdNext_Click() {
    if (!store_) return;
    qdf::clsExGlobalVars& s = *store_;
    const auto refDensity =
        RequireNumber(txtRefDensity, "Please fill out reference density value!",
                      "Please enter a correct number for reference density value!");
    if (!refDensity) return;
    std::optional<double> isenExp;
    if (s.UI_FluidType != 1) {
        isenExp = RequireNumber(txtIsenExp, "Please fill out isentropic exponent value!",
                                "Please enter a correct number for isentropic exponent value!");
        if (!isenExp) return;
    }
    const auto molWeight =
        RequireNumber(txtMolWeight, "Please fill out molecular weight value",
                      "Please enter a correct number for molecular weight value!");
    if (!molWeight) return;
    if (qdf::wizard::BoxText(txtMolWeight) != ".") s.UI_MolWeight = *molWeight;

    // The tables: the standard ones stand as computed or committed; the shown ones take the
    // units now selected.
    try {
        for (int k = 0; k < dataPointCount; ++k)
            s.UI_Dens[k] = DensityShown(s.UI_DensStandard[k], s.UI_DensUnit);
        for (int k = 0; k < ViscosityRowCount(); ++k)
            s.UI_Visc[k] = ViscosityShown(s.UI_ViscStandard[k], s.UI_ViscUnit);
    } catch (const std::out_of_range&) {
    }
    if (const auto unit = SelectedUnit(cboVisUnit)) s.UI_ViscUnit = *unit;
    if (const auto unit = SelectedUnit(cboDensUnit)) s.UI_RefDensUnit = *unit;
    if (txtRefDensity->text() == refDensShown_ && s.UI_RefDensValueStandard != kNotEntered) {
        s.UI_RefDensValue = DensityShown(s.UI_RefDensValueStandard, s.UI_DensUnit);
    } else {
        s.UI_RefDensValue = *refDensity;
        s.UI_RefDensValueStandard = DensityStandard(*refDensity, s.UI_DensUnit);
    }
    if (isenExp && txtIsenExp->text() != isenExpShown_) s.UI_IsenExpValue = *isenExp;

    if (qdf::RunFits(s) != 0) return Notify(qdf::kTitleInformation, FitFailureText(s));
    if (!SelectedUnit(cboDensUnit))
        return Refuse("Please make a selection for density unit", cboDensUnit);
    if (!SelectedUnit(cboVisUnit))
        return Refuse("Please make a selection for viscosity unit", cboVisUnit);

    s.Mgt_ConfigCompleteFlag = 1;
    GoForward("ctlPhysicalPropertySetup", "ctlSaveAndDownload");
}

void ctlPhysicalPropertySetup::cmdBack_Click() {
    GoBack({"ctlOperatingRangeLiquid", "ctlOperatingRangeSatSteam", "ctlOperatingRangeSetup"});
}
