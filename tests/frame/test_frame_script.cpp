// Scripts played on a hosted module's view: where controls are found, what is printed, where
// a script stops, and the file dialogs of menu commands.

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "FrameScript.h"
#include "FrameTestSupport.h"

// The wizard's page base class, which the frame knows only by its name.
class ctlPage : public QWidget {
    Q_OBJECT
  public:
    using QWidget::QWidget;
};

namespace qdf::frame {
namespace {

using namespace qdf::sdk;

// Two pages that both have a cmdNext; the second holds a box, a list, a grid, a question and a
// close button; the module has a menu command that asks for a file.
class PagesModule : public QWidget, public StubModule {
  public:
    ctlPage* first;
    ctlPage* second;
    QLineEdit* box;
    QComboBox* list;
    QTableWidget* grid;
    int secondNextClicks = 0;
    std::int32_t answer = 0;
    QString opened = "(not asked)";

    PagesModule() {
        first = Page("pageFirst");
        second = Page("pageSecond");
        second->hide();
        connect(Button(first, "cmdNext"), &QPushButton::clicked, [this] {
            first->hide();
            second->show();
        });
        connect(Button(second, "cmdNext"), &QPushButton::clicked, [this] { ++secondNextClicks; });
        box = new QLineEdit(second);
        box->setObjectName("txtValue");
        list = new QComboBox(second);
        list->setObjectName("cboUnit");
        list->addItems({"degC", "degF"});
        grid = new QTableWidget(2, 2, second);
        grid->setObjectName("grdTable");
        connect(Button(second, "cmdAsk"), &QPushButton::clicked, [this] {
            answer = manager_->SDKMessageService()->ShowMessage(
                "Title", "Keep \"it\"?", kMessageKindQuestion, kMessageButtonsYesNo,
                kMessageAnswerYes);
        });
        connect(Button(second, "cmdClose"), &QPushButton::clicked,
                [this] { manager_->CloseModule(id_); });
        auto* open = new QAction(this);
        open->setObjectName("MenuOpen");
        connect(open, &QAction::triggered,
                [this] { opened = QFileDialog::getOpenFileName(this, "Open"); });
    }

    void ISDKModule_Initialize(const std::string& id, std::int32_t, const std::string&,
                               ISDKManager* m) override {
        id_ = id;
        manager_ = m;
    }
    void* View() override { return static_cast<QWidget*>(this); }

  private:
    ctlPage* Page(const char* name) {
        auto* p = new ctlPage(this);
        p->setObjectName(name);
        Button(p, "cmdNext");
        return p;
    }
    static QPushButton* Button(QWidget* page, const char* name) {
        if (auto* b = page->findChild<QPushButton*>(name)) return b;
        auto* b = new QPushButton(page);
        b->setObjectName(name);
        return b;
    }

    ISDKManager* manager_ = nullptr;
    std::string id_;
};

// A host with the demo HART device and the module open on it, and a script printing into out.
struct Played {
    std::ostringstream out;
    FrameScript script{out};
    FrameHost host;
    PagesModule* module = nullptr;

    explicit Played(const std::string& json) {
        std::string error;
        EXPECT_TRUE(script.Parse(json, &error)) << error;
        QString deviceError;
        EXPECT_TRUE(
            host.AddDeviceFile(QDF_SOURCE_DIR "/data/devices/qdf300_hart.json", &deviceError))
            << deviceError.toStdString();
        script.Attach(host);
        module = new PagesModule;
        host.OpenModule(0, module, [](ISDKModule* m) { delete static_cast<PagesModule*>(m); });
    }
    // The error, "" when every step was played.
    std::string Play() {
        std::string error;
        if (script.Play(host, &error)) error.clear();
        return error;
    }
};

TEST(FrameScript, UnnamedPageMeansThePageInViewAndRowsAreQuoted) {
    // Catches a step without a page that reaches the hidden page's button of the same name, an
    // answer not taken from the step's queue, or a quote in a message left undoubled.
    Played run(R"({"steps": [
        {"click": "cmdNext"},
        {"click": "cmdNext"},
        {"set": "txtValue", "text": "15"},
        {"choose": "cboUnit", "entry": "degF"},
        {"cell": "grdTable", "row": 1, "column": 0, "text": "2.5"},
        {"answers": [7], "click": "cmdAsk"}]})");
    PagesModule& m = *run.module;
    ASSERT_EQ(run.Play(), "");
    EXPECT_EQ(m.secondNextClicks, 1);
    EXPECT_EQ(m.box->text(), "15");
    EXPECT_EQ(m.list->currentText(), "degF");
    ASSERT_NE(m.grid->item(1, 0), nullptr);
    EXPECT_EQ(m.grid->item(1, 0)->text(), "2.5");
    EXPECT_EQ(m.answer, kMessageAnswerNo);
    run.script.Finish(run.host, 0);
    EXPECT_EQ(run.out.str(),
              "message,\"Title\",\"Keep \"\"it\"\"?\",3,5,6,7\n"
              "module,open,pageSecond\n");
    EXPECT_FALSE(run.host.IsModuleOpen());
}

TEST(FrameScript, StopsAtTheFirstStepItCannotPlayAndSaysWhy) {
    // Catches a bad step that is skipped silently, or steps played after it.
    const std::vector<std::pair<std::string, std::string>> cases = {
        {R"({"page": "pageNone", "click": "cmdNext"})", "step 1: no page pageNone"},
        {R"({"click": "cmdMissing"})", "step 1: no control cmdMissing on pageFirst"},
        {R"({"page": "pageFirst", "set": "txtValue", "text": "1"})",
         "step 1: no control txtValue on pageFirst"},
        {R"({"menu": "MenuNone"})", "step 1: no menu entry MenuNone"},
        {R"({"answers": [6]}, {"click": "cmdNext"}, {"choose": "cboUnit", "entry": "K"})",
         "step 3: no entry K"},
        {R"({"click": "cmdNext"}, {"click": "cmdClose"}, {"click": "cmdNext"})",
         "step 3: the module is closed"},
    };
    for (const auto& [steps, why] : cases) {
        Played run(R"({"steps": [)" + steps + R"(, {"click": "cmdNext"}, {"click": "cmdNext"}]})");
        const bool closes = why.ends_with("the module is closed");
        const bool onSecond = why.starts_with("step 3");
        EXPECT_EQ(run.Play(), why) << steps;
        if (!closes) {
            EXPECT_EQ(run.module->secondNextClicks, 0) << steps;
        }
        run.script.Finish(run.host, 0);
        EXPECT_EQ(run.out.str(), closes     ? "module,closed\n"
                                 : onSecond ? "module,open,pageSecond\n"
                                            : "module,open,pageFirst\n")
            << steps;
    }
}

TEST(FrameScript, RefusesWhatNoUserCouldReach) {
    // Catches a step that presses a control on a page not in view (searched for in the whole
    // module), or one that is hidden, disabled or read-only: the run must stop there, say
    // which step and why, and the control must not act.
    struct Case {
        std::string steps;
        std::function<void(PagesModule&)> prepare;
        std::string why;
    };
    const std::vector<Case> cases = {
        {R"({"page": "pageSecond", "click": "cmdAsk"})", nullptr,
         "step 1: page pageSecond is not in view (pageFirst is)"},
        {R"({"click": "cmdAsk"})", nullptr, "step 1: no control cmdAsk on pageFirst"},
        {R"({"click": "cmdNext"}, {"page": "pageFirst", "click": "cmdNext"})", nullptr,
         "step 2: page pageFirst is not in view (pageSecond is)"},
        {R"({"click": "cmdNext"}, {"answers": [6]}, {"click": "cmdAsk"})",
         [](PagesModule& m) { m.second->findChild<QPushButton*>("cmdAsk")->hide(); },
         "step 3: cmdAsk on pageSecond is hidden"},
        {R"({"click": "cmdNext"}, {"click": "cmdAsk"})",
         [](PagesModule& m) { m.second->findChild<QPushButton*>("cmdAsk")->setEnabled(false); },
         "step 2: cmdAsk on pageSecond is disabled"},
        {R"({"click": "cmdNext"}, {"set": "txtValue", "text": "3"})",
         [](PagesModule& m) { m.box->setReadOnly(true); },
         "step 2: txtValue on pageSecond is read-only"},
        {R"({"click": "cmdNext"}, {"choose": "cboUnit", "index": 1})",
         [](PagesModule& m) { m.list->setEnabled(false); },
         "step 2: cboUnit on pageSecond is disabled"},
        {R"({"click": "cmdNext"}, {"cell": "grdTable", "row": 0, "column": 1, "text": "9"})",
         [](PagesModule& m) {
             auto* disabled = new QTableWidgetItem;
             disabled->setFlags(Qt::NoItemFlags);
             m.grid->setItem(0, 1, disabled);
         },
         "step 2: cell 0,1 of grdTable is not one a user can enter"},
        {R"({"menu": "MenuOpen", "path": "x.qmv"})",
         [](PagesModule& m) { m.findChild<QAction*>("MenuOpen")->setEnabled(false); },
         "step 1: menu entry MenuOpen is disabled"},
    };
    for (const Case& c : cases) {
        Played run(R"({"steps": [)" + c.steps + "]}");
        PagesModule& m = *run.module;
        if (c.prepare) c.prepare(m);
        EXPECT_EQ(run.Play(), c.why) << c.steps;
        EXPECT_EQ(m.answer, 0) << c.steps;
        EXPECT_EQ(m.box->text(), "") << c.steps;
        EXPECT_EQ(m.list->currentIndex(), 0) << c.steps;
        const QTableWidgetItem* cell = m.grid->item(0, 1);
        EXPECT_TRUE(!cell || cell->text().isEmpty()) << c.steps;
        EXPECT_EQ(m.opened, "(not asked)") << c.steps;
        EXPECT_EQ(m.secondNextClicks, 0) << c.steps;
        run.script.Finish(run.host, 0);
        EXPECT_EQ(run.out.str().find("message,"), std::string::npos) << c.steps;
    }
}

TEST(FrameScript, MenuPathAnswersTheCommandsFileDialog) {
    // Catches a menu command whose file dialog waits for a user in a scripted window, or that
    // receives another path than the script's.
    Played run(R"({"steps": [{"menu": "MenuOpen", "path": "examples/x.qmv"}]})");
    ASSERT_EQ(run.Play(), "");
    EXPECT_EQ(run.module->opened, QDir::current().absoluteFilePath("examples/x.qmv"));
}

TEST(FrameScript, HeadSetsTheUserAndMalformedHeadsAreRefused) {
    // Catches a script whose user is ignored, or a malformed one taken as empty.
    Played run(R"({"user": {"level": 3, "name": "plant engineer"}, "answers": [6, 7]})");
    EXPECT_EQ(run.host.user.level, 3);
    EXPECT_EQ(run.host.user.name, "plant engineer");
    EXPECT_EQ(run.script.Messages().answers, (std::deque<std::int32_t>{6, 7}));
    EXPECT_EQ(&run.host.MessageService(), &run.script.Messages());

    std::ostringstream out;
    FrameScript bad(out);
    for (const char* text :
         {"[]", R"({"answers": ["yes"]})", R"({"user": {"level": "two"}})", R"({"steps": [)"}) {
        std::string error;
        EXPECT_FALSE(bad.Parse(text, &error)) << text;
        EXPECT_FALSE(error.empty()) << text;
    }
}

}  // namespace
}  // namespace qdf::frame

#include "test_frame_script.moc"
