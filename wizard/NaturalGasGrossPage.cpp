#include "NaturalGasGrossPage.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ModUnit.h"
#include "NumberText.h"
#include "PageSupport.h"
#include "TVRQDFFCWMain.h"
#include "clsExGlobalVars.h"

using namespace qdf::wizard;

namespace {

// One row of a frame: caption, box, then what stands after the box (a unit, a list, the
// reference conditions).
QLineEdit* AddField(QGridLayout* rows, QWidget* parent, const char* name, const char* caption,
                    const char* unit) {
    const int row = rows->rowCount();
    rows->addWidget(new QLabel(QString::fromLatin1(caption), parent), row, 0);
    QLineEdit* box = NumberBox(parent, name);
    box->setFixedWidth(90);
    rows->addWidget(box, row, 1);
    if (unit) rows->addWidget(new QLabel(QString::fromLatin1(unit), parent), row, 2);
    return box;
}

QLabel* ReferenceLabel(QWidget* parent, const char* name, const char* text) {
    auto* label = new QLabel(QString::fromLatin1(text), parent);
    label->setObjectName(QString::fromLatin1(name));
    return label;
}

}  // namespace

NaturalGasGrossPage::NaturalGasGrossPage(const GrossPageDesign& design, QWidget* parent)
    : ctlPage(parent), design_(design) {
    setObjectName(QString::fromLatin1(design.objectName));
    auto* grid = new QGridLayout(this);
    AddAutoSequence(grid, 4, QStringLiteral("lblNaturalGas"));

    auto* right = new QVBoxLayout;
    auto* title = new QLabel(QStringLiteral("NATURAL GAS SETUP"), this);
    title->setObjectName(QStringLiteral("lblTitle"));
    right->addWidget(title);
    auto* method = new QLabel(QString::fromLatin1(design.method), this);
    method->setObjectName(QStringLiteral("lblMethod"));
    QFont bold = method->font();
    bold.setBold(true);
    method->setFont(bold);
    right->addWidget(method);

    auto* mandatory = new QGroupBox(QStringLiteral("Mandatory"), this);
    mandatory->setObjectName(QStringLiteral("fraMandatory"));
    auto* m = new QGridLayout(mandatory);
    txtRealGasDens =
        AddField(m, mandatory, "txtRealGasDens", "Real gas relative density:", nullptr);
    m->addWidget(ReferenceLabel(mandatory, "lblRelDensReference", design.densityReference),
                 m->rowCount(), 1, 1, 3);
    txtCO2Mole = AddField(m, mandatory, "txtCO2Mole", "Carbon dioxide (CO2) mole:", "%");
    if (design.heatingValueReference) {
        txtVolGrHv =
            AddField(m, mandatory, "txtVolGrHv", "Volumetric gross heating value:", nullptr);
        cboVolGrHvUnit = UnitList(mandatory, "cboVolGrHvUnit");
        m->addWidget(cboVolGrHvUnit, m->rowCount() - 1, 2);
        m->addWidget(ReferenceLabel(mandatory, "lblVolGrHvReference", design.heatingValueReference),
                     m->rowCount(), 1, 1, 3);
    }
    if (design.nitrogen)
        txtN2Mole = AddField(m, mandatory, "txtN2Mole", "Nitrogen (N2) mole:", "%");
    m->setColumnStretch(3, 1);
    right->addWidget(mandatory);

    auto* optional = new QGroupBox(QStringLiteral("Optional"), this);
    optional->setObjectName(QStringLiteral("fraOptional"));
    auto* o = new QGridLayout(optional);
    txtH2Mole = AddField(o, optional, "txtH2Mole", "Hydrogen (H2) mole:", "%");
    if (design.carbonMonoxide)
        txtCOMole = AddField(o, optional, "txtCOMole", "Carbon monoxide (CO) mole:", "%");
    o->setColumnStretch(3, 1);
    // Both frames align their boxes on one caption width.
    m->setColumnMinimumWidth(0, 200);
    o->setColumnMinimumWidth(0, 200);
    right->addWidget(optional);
    right->addStretch();
    grid->addLayout(right, 0, 1);

    cmdNext = AddPageButtons(grid, QStringLiteral("cmdNext"), QStringLiteral("Next >"),
                             [this] { cmdNext_Click(); });
}

qdf::clsExGlobalVars* NaturalGasGrossPage::Initialize(qdf::clsExGlobalVars* store) {
    ctlPage::Initialize(store);
    if (!store_) return store_;
    LoadStaticLists();
    LoadFromStore();
    return store_;
}

void NaturalGasGrossPage::UpdateImportedVars() {
    if (!store_) return;
    // A list emptied by ClearLists is filled again before it is shown.
    if (cboVolGrHvUnit && cboVolGrHvUnit->count() == 0) LoadStaticLists();
    LoadFromStore();
    StartBlink();
}

void NaturalGasGrossPage::ClearLists() {
    if (cboVolGrHvUnit) cboVolGrHvUnit->clear();
}

void NaturalGasGrossPage::LoadStaticLists() {
    if (cboVolGrHvUnit)
        FillUnitList(cboVolGrHvUnit, kHeatingValueUnitList, store_->strCorvanePCLocation);
}

void NaturalGasGrossPage::LoadFromStore() {
    const qdf::clsExGlobalVars& s = *store_;
    ShowNumber(txtRealGasDens, s.UI_RgRelDens);
    ShowNumber(txtCO2Mole, s.UI_CO2Mole);
    if (txtVolGrHv) ShowNumber(txtVolGrHv, s.UI_VgHv);
    if (txtN2Mole) ShowNumber(txtN2Mole, s.UI_N2Mole);
    if (cboVolGrHvUnit) SelectUnit(cboVolGrHvUnit, s.UI_VgHvUnit);
    // The optional fields are shown as they stand, a never-entered value included.
    txtH2Mole->setText(QString::fromStdString(qdf::NumToText(s.UI_H2Mole)));
    if (txtCOMole) txtCOMole->setText(QString::fromStdString(qdf::NumToText(s.UI_COMole)));
}

std::optional<double> NaturalGasGrossPage::TestField(QLineEdit* box, const char* emptyText,
                                                     const GasLimit* limit) {
    const std::optional<double> value =
        RequireNumber(box, emptyText, "Please enter a number", true);
    if (!value || !limit) return value;
    if (*value < limit->low || *value > limit->high) {
        // The user has to type the value again.
        Notify(kTitleWizard,
               RangeText(limit->before, limit->low, " and ", limit->high, limit->after));
        box->clear();
        box->setFocus();
        return std::nullopt;
    }
    return value;
}

void NaturalGasGrossPage::cmdNext_Click() {
    if (!store_) return;
    qdf::clsExGlobalVars& s = *store_;
    const GrossPageDesign& d = design_;

    const auto density = TestField(
        txtRealGasDens, "Please fill out real gas relative density value", &d.relativeDensity);
    if (!density) return;
    const auto co2 = TestField(txtCO2Mole, "Please fill out CO2 mole value", &d.co2);
    if (!co2) return;
    std::optional<double> heatingValue;
    if (txtVolGrHv) {
        // The limits are those of the unit as chosen; without a unit the next step refuses.
        const QString unit =
            cboVolGrHvUnit->currentIndex() < 0 ? QString() : cboVolGrHvUnit->currentText();
        const GasLimit* limit = unit == QStringLiteral("MJ/m3")     ? &d.heatingValueMJ
                                : unit == QStringLiteral("BTU/ft3") ? &d.heatingValueBTU
                                                                    : nullptr;
        heatingValue =
            TestField(txtVolGrHv, "Please fill out volumetric gross heating value", limit);
        if (!heatingValue) return;
        if (limit == &d.heatingValueMJ) s.UI_VgHvStandard = *heatingValue;
        if (limit == &d.heatingValueBTU) s.UI_VgHvStandard = qdf::BtuFt3ToMJM3(*heatingValue);
    }
    std::optional<double> n2;
    if (txtN2Mole) {
        n2 = TestField(txtN2Mole, "Please fill out Nitrogen mole", &d.n2);
        if (!n2) return;
    }
    std::optional<std::int32_t> unit;
    if (cboVolGrHvUnit) {
        unit = SelectedUnit(cboVolGrHvUnit);
        if (!unit)
            return Refuse("Please make a selection of volumetric gross heating value unit",
                          cboVolGrHvUnit);
    }
    const auto h2 = TestField(txtH2Mole, "Please fill out H2 mole value", &d.h2);
    if (!h2) return;
    std::optional<double> co;
    if (txtCOMole) {
        co = TestField(txtCOMole, "Please fill out CO mole value", &d.co);
        if (!co) return;
    }

    s.UI_RgRelDens = *density;
    s.UI_CO2Mole = *co2;
    if (heatingValue) {
        s.UI_VgHv = *heatingValue;
        s.UI_VgHvUnit = *unit;
    }
    if (n2) s.UI_N2Mole = *n2;
    s.UI_H2Mole = *h2;
    if (co) s.UI_COMole = *co;
    d.loadVector(s);

    GoForward(d.controlName, "ctlOperatingRangeSetup");
}

void NaturalGasGrossPage::cmdBack_Click() {
    // Back stores nothing: edits on this page are dropped.
    if (Main()) Main()->SwitchToFluidSetup();
}
