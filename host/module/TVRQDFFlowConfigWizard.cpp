#include "TVRQDFFlowConfigWizard.h"

#include <QLabel>
#include <QResizeEvent>
#include <QScrollBar>
#include <QVBoxLayout>

#include "ModDefaults.h"
#include "ModDeviceParams.h"
#include "ModLog.h"
#include "Nation.h"
#include "PropertyBag.h"
#include "Registry.h"
#include "StoreRegistry.h"
#include "TVRQDFFCWMain.h"
#include "clsAsyncStatus.h"
#include "clsExGlobalVars.h"

namespace {

struct EntryDef {
    std::int32_t id;
    const char* logical;
    std::int32_t attribute;
};

// Registration order. The fixed-value entry comes last on purpose: allRequested is set just
// before it, so that its registration may already complete the load.
constexpr EntryDef kEntries[TVRQDFFlowConfigWizard::kEntryCount] = {
    {33, "DDC__FDTUserLevel", 1},
    {34, "DDC__FDTUserName", 1},
    {35, "tag", 1},
    {37, "Xmtr_SimpleFluidTypeCode", 1},
    {38, "Xmtr_SimpleRefStaticPress", 1},
    {39, "Xmtr_SimpleRefTemp", 1},
    {40, "Xmtr_SimpleStaticPressUnit", 1},
    {41, "XmtrFF_FtbStaticPressUnit", 1},
    {42, "Xmtr_SimpleTempK1ForLqdVar", 1},
    {43, "Xmtr_SimpleTempUnit", 1},
    {44, "XmtrFF_FtbTempUnitCode", 1},
    {45, "Xmtr_SimpleFlowCalcMode", 1},
    {46, "Xmtr_SimpleDensityBase", 1},
    {48, "et_units", 9},
    {49, "flow_units", 9},
    {50, "static_pressure_units", 9},
    {51, "Xmtr_CONFIG_DATE", 1},
    {52, "Xmtr_CONFIG_OSTRING32", 1},
    {53, "Xmtr_CONFIG_SOFT_REV", 1},
    {54, "Xmtr_CONFIG_VSTRING16_1", 1},
    {55, "Xmtr_CONFIG_VSTRING16_2", 1},
    {56, "Xmtr_CONFIG_VSTRING32", 1},
    {57, "Xmtr_CONFIG_WHO", 1},
    {36, "Xmtr_SimpleFlowCalcFixedVar", 1},
};

// The device values the frame keeps observing while the module is open.
constexpr std::int32_t kTempUnitId = 43;
constexpr std::int32_t kFFTempUnitId = 44;

const char* LogicalName(std::int32_t id) {
    for (const EntryDef& e : kEntries)
        if (e.id == id) return e.logical;
    return "";
}

// A device value into a store member by name; a value that does not convert leaves the member.
void SetFromDevice(qdf::clsExGlobalVars& s, std::string_view member, const qdf::Value& v) {
    try {
        qdf::SetMember(s, member, v);
    } catch (const std::exception&) {
    }
}

double NumberOf(const qdf::Value& v) {
    try {
        return qdf::ConvertToKind(v, qdf::MemberKind::Double).toDouble();
    } catch (const std::exception&) {
        return 0.0;
    }
}

std::int32_t IntegerOf(const qdf::Value& v) {
    try {
        return *qdf::ConvertToKind(v, qdf::MemberKind::Int32).get_if<std::int32_t>();
    } catch (const std::exception&) {
        return 0;
    }
}

void ShowWarning(ISDKManager* manager, const char* text) {
    if (!manager) return;
    if (ISDKMessageService* m = manager->SDKMessageService())
        m->ShowMessage("QDF300 Warning", text, 1, 2, 4);
}

QLabel* ScreenLabel(QWidget* screen, const char* text) {
    auto* layout = new QVBoxLayout(screen);
    auto* label = new QLabel(QString::fromLatin1(text), screen);
    label->setObjectName(QStringLiteral("Label1"));
    layout->addWidget(label);
    layout->addStretch();
    screen->setAutoFillBackground(true);
    return label;
}

}  // namespace

ctlLoadScreen::ctlLoadScreen(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ctlLoadScreen"));
    Label1 = ScreenLabel(this, "Module is loading Parameters... ");
}

ctlErrorScreen::ctlErrorScreen(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ctlErrorScreen"));
    Label1 = ScreenLabel(
        this, "In order to use this function, you must install KLM450(Trelwin Corvane) CD-ROM.");
}

TVRQDFFlowConfigWizard::TVRQDFFlowConfigWizard(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("TVRQDFFlowConfigWizard"));
    // The three views lie on top of each other; exactly one is visible at a time.
    main_ = new TVRQDFFCWMain(this);
    main_->hide();
    loadScreen_ = new ctlLoadScreen(this);
    loadScreen_->hide();
    errorScreen_ = new ctlErrorScreen(this);
    errorScreen_->hide();
    resize(main_->size());
}

TVRQDFFlowConfigWizard::~TVRQDFFlowConfigWizard() = default;

void TVRQDFFlowConfigWizard::ISDKModule_OnConnectionStatusChange(const std::string& BusID,
                                                                 std::int32_t) {
    busID_ = BusID;
}

std::int32_t TVRQDFFlowConfigWizard::ISDKModule_QueryDestroyModule(const std::string&) {
    return qdf::sdk::kSDKStatusOk;
}

void TVRQDFFlowConfigWizard::ISDKModule_SetPersistentData(const qdf::Value& varData) {
    // Persistence runs through the business object only; the value is taken and dropped.
    qdf::Value dropped = varData;
    (void)dropped;
}

void TVRQDFFlowConfigWizard::ISDKModule_Initialize(const std::string& moduleID,
                                                   std::int32_t lFunctionId,
                                                   const std::string& bstrInitialization,
                                                   ISDKManager* pSDKManager) {
    moduleID_ = moduleID;
    lFunctionId_ = lFunctionId;
    bstrInitialization_ = bstrInitialization;
    SDKManager_ = pSDKManager;

    std::string path;
    if (!qdf::module::GetKeyValue(qdf::module::RootKey::LocalMachine, qdf::module::kSondraCommonKey,
                                  "Path", path)) {
        // Without the tool family's installation there is nothing to run.
        errorScreen_->setGeometry(rect());
        errorScreen_->show();
        errorScreen_->raise();
        return;
    }
    helpPath_ = path;

    store_ = std::make_unique<qdf::clsExGlobalVars>();
    qdf::clsExGlobalVars& s = *store_;
    s.Initialize();
    s.Mgt_HelpFilePath = path;
    s.SDKManager = SDKManager_;
    s.FCWParent = this;
    s.moduleID = moduleID_;
    s.varsInitialized = qdf::kFalse;
    s.BusID = busID_;

    asyncStatus_ = std::make_unique<qdf::host::clsAsyncStatus>();
    allRequested_ = 0;
    s.Mgt_FldCommType = busID_ == "FFH1" ? 1 : 0;

    loadScreen_->setGeometry(rect());
    loadScreen_->show();
    loadScreen_->raise();

    if (SDKManager_) SDKManager_->RequestBusinessObject(kBusinessObjectName, asyncStatus_.get());

    for (int i = 0; i < kEntryCount; ++i) {
        ObservedVariable& e = entries_[static_cast<std::size_t>(i)];
        e = ObservedVariable();
        e.id = kEntries[i].id;
    }

    for (int i = 0; i < kEntryCount; ++i) {
        // The load may complete inside the last registration, not before.
        if (i == kEntryCount - 1) allRequested_ = -1;
        if (!SDKManager_ || !store_) break;
        Observe(entries_[static_cast<std::size_t>(i)], kEntries[i].logical, kEntries[i].attribute);
    }
}

void TVRQDFFlowConfigWizard::Observe(ObservedVariable& e, const char* logical,
                                     std::int32_t attributeId) {
    e.name = store_->GetDDName(busID_, logical);
    std::string step = "looking up";
    try {
        // No variable is how a parameter that this bus or revision lacks drops out.
        e.variable = SDKManager_->FindVariable(qdf::sdk::kVariableKindParameter, e.name);
        if (!e.variable) return;
        step = "opening";
        e.accessor = SDKManager_->OpenVariable(e.variable);
        if (!e.accessor) throw SDKError("the frame gave no accessor");
        step = "reading attribute " + std::to_string(attributeId) + " of";
        e.attribute = e.accessor->GetAttribute(attributeId);
        if (!e.attribute) throw SDKError("the frame has no such attribute");
        step = "observing";
        e.handle = e.attribute->Advise(e.id, this);
        e.attribute->StartObserving(e.handle);
    } catch (const std::exception& error) {
        e.failure = step + " " + e.name + ": " + error.what();
        LogFailure(e.failure);
    }
}

void TVRQDFFlowConfigWizard::LogFailure(const std::string& text) const {
    // Without a log folder the entry is lost; the load goes on regardless.
    try {
        if (store_) qdf::LogLinkError(*store_, text);
    } catch (const std::exception&) {
    }
}

ObservedVariable* TVRQDFFlowConfigWizard::Find(std::int32_t id) {
    for (ObservedVariable& e : entries_)
        if (e.id == id) return &e;
    return nullptr;
}

void TVRQDFFlowConfigWizard::ISDKObserverCallback_Update(std::int32_t hObserver,
                                                         const qdf::Value& varNewValue) {
    if (hObserver == 0) return;
    // A frame may still deliver after the module was shut down (or before it started): there is
    // no store to take the value.
    if (!store_) return;
    ObservedVariable* e = Find(hObserver);
    if (!e) return;
    e->value = varNewValue;
    // These follow the device while the module is open; the download uses them.
    if (hObserver == kTempUnitId && busID_ == "HART")
        store_->HART_SimpleTempUnitSave = IntegerOf(varNewValue);
    if (hObserver == kFFTempUnitId && busID_ == "FFH1")
        store_->FF_FtbTempUnitCodeSave = IntegerOf(varNewValue);
    for (const ObservedVariable& x : entries_)
        if (x.Pending()) return;
    if (allRequested_) CompleteLoad();
}

void TVRQDFFlowConfigWizard::StopObserver(ObservedVariable& e) {
    if (!e.attribute) return;
    try {
        e.attribute->StopObserving(e.handle);
        e.attribute->Unadvise(e.handle);
    } catch (const SDKError&) {
    }
    e.attribute = nullptr;
}

void TVRQDFFlowConfigWizard::CompleteLoad() {
    allRequested_ = 0;
    if (!store_) return;
    ++completions_;
    qdf::clsExGlobalVars& s = *store_;

    for (ObservedVariable& e : entries_)
        if (e.id != kTempUnitId && e.id != kFFTempUnitId) StopObserver(e);

    const SDKResult result = asyncStatus_->result;
    if (result.isEmpty())
        ShowWarning(SDKManager_,
                    "Reading business object failed. No user interface persistency possible!");
    else
        s.FCWBO = result.object;

    s.propertyBag = std::make_shared<qdf::PropertyBag>();
    if (s.FCWBO) {
        // Unreadable bytes leave the bag empty and the defaults standing.
        try {
            const std::vector<std::uint8_t> bytes = s.FCWBO->ReadData();
            if (bytes.size() > 1) {
                if (auto bag = qdf::PropertyBag::FromBytes(bytes))
                    s.propertyBag = std::make_shared<qdf::PropertyBag>(std::move(*bag));
            }
        } catch (...) {
        }
    }

    if (NumberOf(Find(33)->value) < 2)
        ShowWarning(SDKManager_,
                    "You are not allowed to save and download data! Only maintenance and "
                    "planningEngineer users are allowed to write data! All inputs will be lost on "
                    "close of this module.");

    qdf::InitializeDefaults(s);
    std::string debug;
    if (qdf::module::GetKeyValue(qdf::module::RootKey::LocalMachine, qdf::module::kQDFSondraKey,
                                 "Mgt_DebugModeFlag", debug) &&
        debug == "1")
        s.Mgt_DebugModeFlag = 1;
    s.InitializeVarsFromPropertyBag();
    CopyDeviceValues();

    s.strCorvanePCLocation = qdf::PCLocation(qdf::UserNation());
    const std::vector<std::string> unusable = s.InitializeUnits(
        Find(50)->value, Find(48)->value, Find(35)->value, Find(33)->value, Find(34)->value);
    if (!unusable.empty()) {
        std::string names;
        for (const std::string& logical : unusable) {
            if (!names.empty()) names += " and ";
            names += s.GetDDName(busID_, logical);
        }
        const std::string text =
            (unusable.size() == 1 ? "The device's unit list " + names + " is"
                                  : "The device's unit lists " + names + " are") +
            " missing or unreadable. No unit can be selected from " +
            (unusable.size() == 1 ? "it." : "them.");
        LogFailure(text);
        ShowWarning(SDKManager_, text.c_str());
    }

    qdf::clsExGlobalVars* given = main_->Initialize(store_.get());
    if (given && given != store_.get()) store_.reset(given);
    main_->UpdateImportedVars();
    main_->move(0, 0);
    main_->show();
    main_->raise();

    if (!scroller_.horizontal) {
        scroller_.horizontal = new QScrollBar(Qt::Horizontal, this);
        scroller_.horizontal->setObjectName(QStringLiteral("HScroll"));
        scroller_.vertical = new QScrollBar(Qt::Vertical, this);
        scroller_.vertical->setObjectName(QStringLiteral("VScroll"));
        connect(scroller_.horizontal, &QScrollBar::valueChanged, this,
                [this](int v) { main_->move(savedLeft_ - v, main_->y()); });
        connect(scroller_.vertical, &QScrollBar::valueChanged, this,
                [this](int v) { main_->move(main_->x(), savedTop_ - v); });
    }
    savedTop_ = main_->y();
    savedLeft_ = main_->x();
    ApplyResizeRule();

    store_->varsInitialized = qdf::kTrue;
    loadScreen_->hide();
}

void TVRQDFFlowConfigWizard::CopyDeviceValues() {
    qdf::clsExGlobalVars& s = *store_;
    auto value = [this](std::int32_t id) -> const qdf::Value& { return Find(id)->value; };
    for (std::int32_t id : {37, 40, 43, 39, 42, 36, 45})
        SetFromDevice(s, LogicalName(id), value(id));
    double refPress = NumberOf(value(38));
    if (busID_ != "FFH1") SetFromDevice(s, "Xmtr_SimpleDensityBase", value(46));
    if (busID_ == "FFH1") {
        SetFromDevice(s, "XmtrFF_FtbStaticPressUnit", value(41));
        // The HART code list lacks some FF pressure scales; the value moves with the unit.
        const qdf::host::HartPressure p =
            qdf::host::HartPressUnitFromFF(IntegerOf(value(41)), refPress);
        s.Xmtr_SimpleStaticPressUnit = p.code;
        refPress = p.value;
        SetFromDevice(s, "XmtrFF_FtbTempUnitCode", value(44));
        s.Xmtr_SimpleTempUnit = qdf::host::HartTempUnitFromFF(IntegerOf(value(44)));
        for (std::int32_t id : {51, 52, 53, 54, 55, 56, 57})
            SetFromDevice(s, LogicalName(id), value(id));
    }
    s.Xmtr_SimpleRefStaticPress = refPress;
}

void TVRQDFFlowConfigWizard::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    loadScreen_->setGeometry(rect());
    errorScreen_->setGeometry(rect());
    ApplyResizeRule();
}

void TVRQDFFlowConfigWizard::ApplyResizeRule() {
    if (!scroller_.horizontal) return;
    const int barW = scroller_.vertical->sizeHint().width();
    const int barH = scroller_.horizontal->sizeHint().height();
    if (width() >= main_->width()) {
        scroller_.horizontal->hide();
        main_->move(savedLeft_, main_->y());
    } else {
        scroller_.horizontal->setGeometry(0, height() - barH, width() - barW, barH);
        scroller_.horizontal->setRange(0, main_->width() - width() + barW);
        scroller_.horizontal->setPageStep(width());
        scroller_.horizontal->show();
        scroller_.horizontal->raise();
    }
    if (height() >= main_->height()) {
        scroller_.vertical->hide();
        main_->move(main_->x(), savedTop_);
    } else {
        scroller_.vertical->setGeometry(width() - barW, 0, barW, height() - barH);
        scroller_.vertical->setRange(0, main_->height() - height() + barH);
        scroller_.vertical->setPageStep(height());
        scroller_.vertical->show();
        scroller_.vertical->raise();
    }
}

std::int32_t TVRQDFFlowConfigWizard::ISDKModule_QueryDisconnect() {
    // After the load only the two temperature units are still observed; a module closed while
    // loading also ends the registrations still waiting, and never completes that load.
    allRequested_ = 0;
    for (ObservedVariable& e : entries_) StopObserver(e);
    main_->Terminate();
    main_->hide();
    errorScreen_->hide();
    loadScreen_->hide();
    if (store_) store_->Terminate();
    store_.reset();
    SDKManager_ = nullptr;
    asyncStatus_.reset();
    return qdf::sdk::kSDKStatusOk;
}
