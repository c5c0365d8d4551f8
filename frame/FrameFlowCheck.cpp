#include "FrameFlowCheck.h"

#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>

#include "FrameDevice.h"
#include "clsExGlobalVars.h"
#include "ctlFlowCheck.h"

namespace qdf::frame {

flowcheck::DeviceData CheckDataOf(const FrameDevice& device) {
    flowcheck::DeviceData data;
    data.bus = device.Bus().empty() ? std::string("HART") : device.Bus();
    for (const FrameParameter& p : device.Parameters())
        if (p.value.isNumber()) data.values[p.name] = p.value.toDouble();
    return data;
}

std::vector<std::string> ReadBackProblems(const flowcheck::DeviceParameters& params,
                                          const std::string& bus) {
    std::vector<std::string> out;
    if (!params.missing.empty()) {
        std::string names;
        for (const std::string& n : params.missing) names += (names.empty() ? "" : ", ") + n;
        out.push_back("missing or not a number: " + names);
    }
    const bool hart = bus != "FFH1";
    const std::string block = "FLOW_TRANSDUCER_BLOCK.0.";
    const auto unit = [&](bool known, const char* hartName, const char* ffName, int32_t code) {
        if (!known)
            out.push_back((hart ? std::string(hartName) : block + ffName) + " holds " +
                          std::to_string(code) + ", a code the device does not know");
    };
    unit(flowcheck::DensityUnitToKgM3(params.densUnitCode) > 0.0, "density_unit",
         "DENSITY_UNIT_CODE", params.densUnitCode);
    unit(flowcheck::LengthUnitToM(params.lenUnitCode) > 0.0, "length_units", "LENGTH_UNIT_CODE",
         params.lenUnitCode);
    unit(std::isfinite(flowcheck::TemperatureUnitToK(0.0, params.tempUnitCode)), "et_units",
         "EXT_TEMPERATURE_UNIT", params.tempUnitCode);
    return out;
}

FrameFlowCheckDialog::FrameFlowCheckDialog(const FrameDevice& device,
                                           std::unique_ptr<clsExGlobalVars> store,
                                           const QString& qmvPath, QWidget* parent)
    : QDialog(parent), store_(std::move(store)) {
    setObjectName(QStringLiteral("dlgFlowCheckWritten"));
    setWindowTitle(QStringLiteral("Flow Check of Written Parameters"));
    resize(900, 660);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);

    const flowcheck::DeviceData data = CheckDataOf(device);
    const std::optional<double> urv = flowcheck::DpUpperRangeOfDevice(data);
    dpFromDevice_ = urv.has_value();

    auto* note = new QLabel(this);
    note->setObjectName(QStringLiteral("lblSource"));
    note->setWordWrap(true);
    note->setContentsMargins(8, 6, 8, 0);
    note->setText(QStringLiteral("Parameters read back from the data of %1 (%2) against the "
                                 "saved configuration %3. DP upper range value %4.")
                      .arg(QString::fromStdString(device.Name()), QString::fromStdString(data.bus),
                           QFileInfo(qmvPath).fileName(),
                           dpFromDevice_ ? QStringLiteral("from the device")
                                         : QStringLiteral("not held by the device: 25 kPa "
                                                          "assumed, change it and press Check")));
    layout->addWidget(note);

    const flowcheck::DeviceParameters params =
        flowcheck::ParametersFromDevice(data.values, data.bus);
    problems_ = new QLabel(this);
    problems_->setObjectName(QStringLiteral("lblReadBack"));
    problems_->setWordWrap(true);
    problems_->setContentsMargins(8, 0, 8, 0);
    problems_->setStyleSheet(QStringLiteral("color: rgb(180, 0, 0)"));
    QString text;
    for (const std::string& p : ReadBackProblems(params, data.bus))
        text += (text.isEmpty() ? QString() : QStringLiteral("\n")) +
                QStringLiteral("Read back: ") + QString::fromStdString(p) + QStringLiteral(".");
    problems_->setText(text);
    problems_->setVisible(!text.isEmpty());
    layout->addWidget(problems_);

    view_ = new ctlFlowCheck(this);
    view_->lblTitle->setText(QStringLiteral("Flow Check of Written Parameters"));
    view_->txtDpMax->setText(QString::number((urv ? *urv : kDefaultDpMaxPa) / 1000.0, 'g', 12));
    view_->cboDpUnit->setCurrentText(QStringLiteral("kPa"));
    layout->addWidget(view_, 1);
    connect(view_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);

    view_->RunWithParameters(*store_, flowcheck::ParametersFromDevice(data.values, data.bus));
}

FrameFlowCheckDialog::~FrameFlowCheckDialog() {
    // The view points into the store; it goes first.
    delete view_;
}

}  // namespace qdf::frame
