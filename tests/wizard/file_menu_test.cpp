#include <QAction>

#include <filesystem>

#include "WizardFixture.h"
#include "WizardServices.h"

using namespace qdf;
using namespace qdf::test;

// Catches the menu left unwired to the files library when no other commands are installed:
// Export QMV must write the file and Import QMV must bring its values back into the store.
TEST_F(WizardFixture, QmvMenuRoundTripUsesTheFilesLibrary) {
    Open();
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / "qdf_wizard_menu_roundtrip.qmv";
    std::filesystem::remove(file);
    wizard::ScriptedDialogService dialogs;
    dialogs.answers.push_back({file.string(), false});
    dialogs.answers.push_back({file.string(), false});
    wizard::WizardServices().dialogs = &dialogs;

    s.UI_PEDiameter = 2.75;
    s.UI_PEName = "Orifice Flange Taps [ISO5167-2 2003]";
    main->MenuExportQMV->trigger();
    ASSERT_TRUE(std::filesystem::exists(file));
    EXPECT_GT(std::filesystem::file_size(file), 100u);

    s.UI_PEDiameter = 1.0;
    s.UI_PEName.clear();
    host.answers.push_back(6);  // yes, overwrite the configuration
    main->MenuImportQMV->trigger();
    wizard::WizardServices().dialogs = nullptr;
    EXPECT_EQ(s.UI_PEDiameter, 2.75);
    EXPECT_EQ(s.UI_PEName, "Orifice Flange Taps [ISO5167-2 2003]");
    EXPECT_EQ(dialogs.requests.size(), 2u);
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].text,
              "Flow configuration data will be overwritten! Are you sure you want to proceed?");
    std::filesystem::remove(file);
}
