#pragma once
// Fluid type setup: gas or liquid, a category, then a named fluid or a calculation method. The
// choice decides which natural gas or operating range page comes next and which property
// family the later steps calculate with.

#include <cstdint>
#include <string>
#include <string_view>

#include "ctlPage.h"

class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

class ctlFluidSetup : public ctlPage {
    Q_OBJECT
  public:
    explicit ctlFluidSetup(QWidget* parent = nullptr);

    qdf::clsExGlobalVars* Initialize(qdf::clsExGlobalVars* store) override;
    void UpdateImportedVars() override;
    void ClearLists() override;

    // The option rule: lists the categories of the type and empties the name and method.
    void optGasSteam_Click();
    void optLiquid_Click();
    // The category rule: which of cboName and txtMethod is shown and what it holds, and the
    // store resets on a change between a liquid and a gas custom table.
    void cboCategory_Click();
    // Refills the page from the store; notices for what this version cannot show.
    void LoadFromStore();
    void cmdNext_Click();
    void cmdBack_Click() override;

    // The category code of a list text; nothing for any other text.
    static std::int32_t CategoryCode(std::string_view text);

    QRadioButton* optGasSteam;
    QRadioButton* optLiquid;
    QComboBox* cboCategory;
    QComboBox* cboName;
    QLineEdit* txtMethod;
    QPushButton* cmdNext;

    bool m_GasSteam = false;
    bool m_Liquid = false;
    // The UI_FluidCat of the last load: tells a change of custom table kind at the click.
    std::int32_t m_LoadedCategory;

  private:
    void SetFluidType(bool gasSteam, bool liquid);
    void FillCategories(std::int32_t fluidType);
    void ShowMethodBox(bool show);
    // Selects the category of a code in the present list and runs the category rule; false
    // when the list does not hold it.
    bool SelectCategory(std::int32_t code);
    bool DebugMode() const;
    // Sets the strings of the next page and asks the main control for it.
    void Fork();
};
