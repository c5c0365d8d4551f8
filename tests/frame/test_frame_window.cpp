// The frame's window shows what a module wrote into the device's offline data.

#include <gtest/gtest.h>

#include <QListWidget>
#include <QTableWidget>

#include "FrameHost.h"
#include "FrameMainWindow.h"

namespace qdf::frame {
namespace {

std::string Cell(QTableWidget* t, const QString& firstColumn, int column) {
    for (int r = 0; r < t->rowCount(); ++r)
        if (t->item(r, 0) && t->item(r, 0)->text() == firstColumn)
            return t->item(r, column)->text().toStdString();
    return "<missing>";
}

TEST(FrameWindow, ParameterTableAndWriteLogFollowModuleWrites) {
    // Catches a window that shows stale offline data after a module wrote, or hides the writes.
    FrameHost host;
    QString error;
    ASSERT_TRUE(host.AddDeviceFile(QDF_SOURCE_DIR "/data/devices/qdf300_hart.json", &error));
    FrameMainWindow window(host);
    auto* devices = window.findChild<QListWidget*>("lstDevices");
    auto* params = window.findChild<QTableWidget*>("tblParameters");
    auto* writes = window.findChild<QTableWidget*>("tblWrites");
    ASSERT_TRUE(devices && params && writes);
    ASSERT_EQ(devices->count(), 1);
    EXPECT_TRUE(devices->item(0)->text().contains("[FT-101]"));
    EXPECT_EQ(Cell(params, "ref_sp", 2), "101.325");
    EXPECT_EQ(Cell(params, "et_units", 4), "qdf_menu_diameter_config, upload_variables");
    EXPECT_TRUE(window.OpenWizardAction()->isEnabled());

    ScriptedMessageService msgs;
    FrameManager m(host.Device(0), host.user, msgs);
    m.GetParameterWriter()->WriteValue(m.FindVariable(1, "qdf_menu_basic_flow_calc"),
                                       m.FindVariable(1, "ref_sp"), Value(2000.0), nullptr);
    EXPECT_EQ(Cell(params, "ref_sp", 2), "2000");
    ASSERT_EQ(writes->rowCount(), 1);
    EXPECT_EQ(writes->item(0, 2)->text().toStdString(), "ref_sp");
    EXPECT_EQ(writes->item(0, 3)->text().toStdString(), "double 2000");
}

}  // namespace
}  // namespace qdf::frame
