#pragma once
// The common design of the three natural gas pages that work from bulk properties (AGA8 gross
// methods 1 and 2, ISO 12213 physical properties): a "Mandatory" and an "Optional" frame,
// limits that can't be overruled, and a box emptied when its value is out of range. Each page
// names the fields it has, their limits and wordings, and its composition vector.

#include "ctlPage.h"

class QComboBox;
class QLineEdit;
class QPushButton;

namespace qdf::wizard {

// An inclusive range with the text that refuses a value outside it: before + low + " and " +
// high + after.
struct GasLimit {
    double low;
    double high;
    const char* before;
    const char* after;
};

struct GrossPageDesign {
    const char* objectName;   // the page's object name
    const char* controlName;  // the name the Back stack holds
    const char* method;       // the method shown under the title
    const char* densityReference;
    const char* heatingValueReference;  // null: the page has no heating value
    bool nitrogen;
    bool carbonMonoxide;
    GasLimit relativeDensity;
    GasLimit co2;
    GasLimit heatingValueMJ;
    GasLimit heatingValueBTU;
    GasLimit n2;
    GasLimit h2;
    GasLimit co;
    // Turns the stored mole percentages into the method's composition vector.
    void (*loadVector)(qdf::clsExGlobalVars& store);
};

}  // namespace qdf::wizard

class NaturalGasGrossPage : public ctlPage {
    Q_OBJECT
  public:
    NaturalGasGrossPage(const qdf::wizard::GrossPageDesign& design, QWidget* parent);

    qdf::clsExGlobalVars* Initialize(qdf::clsExGlobalVars* store) override;
    void UpdateImportedVars() override;
    void ClearLists() override;

    void cmdNext_Click();
    void cmdBack_Click() override;

    // Null where the page has no such field.
    QLineEdit* txtRealGasDens = nullptr;
    QLineEdit* txtCO2Mole = nullptr;
    QLineEdit* txtVolGrHv = nullptr;
    QComboBox* cboVolGrHvUnit = nullptr;
    QLineEdit* txtN2Mole = nullptr;
    QLineEdit* txtH2Mole = nullptr;
    QLineEdit* txtCOMole = nullptr;
    QPushButton* cmdNext = nullptr;

  private:
    void LoadStaticLists();
    void LoadFromStore();
    // Empty, not a number, out of range: each refused in turn, the last with the box emptied.
    std::optional<double> TestField(QLineEdit* box, const char* emptyText,
                                    const qdf::wizard::GasLimit* limit);

    const qdf::wizard::GrossPageDesign& design_;
};
