#include "FrameScript.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QTableWidget>
#include <QTimer>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <type_traits>
#include <vector>

#include "FrameHost.h"

namespace qdf::frame {

namespace {

// The pages are the module's, so the frame knows them only by their class name.
constexpr const char* kPageClass = "ctlPage";

std::string Quote(const std::string& s) {
    std::string q = "\"";
    for (char c : s) {
        if (c == '"') q += '"';
        q += c;
    }
    return q + "\"";
}

// Not printf: a Qt program runs under the user's C locale, and a printed row must not change
// its decimal point with the desktop.
std::string Number(double v) {
    char buf[40];
    const auto res = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::general, 17);
    return std::string(buf, res.ptr);
}

std::string TypeAndValue(const qdf::Value& v) {
    using K = qdf::Value::Kind;
    switch (v.kind()) {
        case K::Empty:
            return "empty,";
        case K::Bool:
            return std::string("bool,") + (v.toDouble() != 0 ? "true" : "false");
        case K::Int16:
            return "int16," + Number(v.toDouble());
        case K::Int32:
            return "int32," + Number(v.toDouble());
        case K::Float:
            return "float," + Number(v.toDouble());
        case K::Double:
            return "double," + Number(v.toDouble());
        case K::String:
            return "string," + Quote(v.str());
        case K::StringArray:
            return "strings," + std::to_string(v.strings().size());
    }
    return "empty,";
}

struct StepError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string NameOf(const QObject* o) {
    return o->objectName().toStdString();
}

// A control as a user finds it: on the page in view (the step's page, when it names one, must
// be that page), shown and open for input. Nothing outside that page is reached, so a script
// cannot press what no user could.
template <class T>
T* Find(QWidget* root, const nlohmann::json& step, const std::string& name) {
    QWidget* page = FrameScript::PageInView(root);
    if (step.contains("page")) {
        const std::string wanted = step.at("page").get<std::string>();
        QWidget* named = root->findChild<QWidget*>(QString::fromStdString(wanted));
        if (!named) throw StepError("no page " + wanted);
        if (named != page)
            throw StepError("page " + wanted + " is not in view" +
                            (page ? " (" + NameOf(page) + " is)" : std::string()));
    }
    if (!page) throw StepError("no page in view");
    T* w = page->findChild<T*>(QString::fromStdString(name));
    if (!w) throw StepError("no control " + name + " on " + NameOf(page));
    if (!w->isVisibleTo(page)) throw StepError(name + " on " + NameOf(page) + " is hidden");
    if (!w->isEnabled()) throw StepError(name + " on " + NameOf(page) + " is disabled");
    if constexpr (std::is_same_v<T, QLineEdit>) {
        if (w->isReadOnly()) throw StepError(name + " on " + NameOf(page) + " is read-only");
    }
    return w;
}

// Runs a menu command that may ask for a file with a modal Qt dialog, and answers the first
// one it opens with the path. The dialog's own checks are left out: the command itself
// reports a file it cannot use.
void TriggerAnsweringFileDialog(QAction* action, const std::string& path) {
    const QString file = QFileInfo(QString::fromStdString(path)).absoluteFilePath();
    QTimer poll;
    bool answered = false;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (answered || dialog == nullptr) return;
        answered = true;
        dialog->selectFile(file);
        static_cast<QDialog*>(dialog)->done(QDialog::Accepted);
    });
    poll.start(5);
    action->trigger();
}

}  // namespace

struct FrameScript::Script {
    nlohmann::json json = nlohmann::json::object();
    std::optional<int> level;
    std::optional<std::string> name;
    std::vector<int> answers;
};

FrameScript::FrameScript(std::ostream& out) : script_(std::make_unique<Script>()), out_(out) {
    messages_.onShown = [this](const ShownMessage& m) {
        out_ << "message," << Quote(m.title) << "," << Quote(m.text) << "," << m.kind << ","
             << m.buttons << "," << m.defaultButton << "," << m.answer << "\n";
    };
}

FrameScript::~FrameScript() = default;

bool FrameScript::Load(const std::string& path, std::string* error) {
    std::ifstream in(path);
    if (!in) {
        if (error) *error = "cannot open " + path;
        return false;
    }
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    return Parse(text, error);
}

bool FrameScript::Parse(const std::string& text, std::string* error) {
    auto next = std::make_unique<Script>();
    try {
        next->json = nlohmann::json::parse(text);
        const nlohmann::json& s = next->json;
        if (!s.is_object()) throw StepError("the script is not a JSON object");
        if (s.contains("user")) {
            const nlohmann::json& u = s.at("user");
            if (u.contains("level")) next->level = u.at("level").get<int>();
            if (u.contains("name")) next->name = u.at("name").get<std::string>();
        }
        if (s.contains("answers"))
            for (const auto& a : s.at("answers")) next->answers.push_back(a.get<int>());
    } catch (const std::exception& e) {
        if (error) *error = e.what();
        return false;
    }
    script_ = std::move(next);
    return true;
}

void FrameScript::Attach(FrameHost& host) {
    if (script_->level) host.user.level = *script_->level;
    if (script_->name) host.user.name = *script_->name;
    for (int a : script_->answers) messages_.answers.push_back(a);
    host.SetMessageService(&messages_);
}

bool FrameScript::Play(FrameHost& host, std::string* error) {
    int number = 0;
    try {
        for (const auto& step : script_->json.value("steps", nlohmann::json::array())) {
            ++number;
            if (!host.IsModuleOpen()) throw StepError("the module is closed");
            auto* root = static_cast<QWidget*>(host.Module()->View());
            if (root == nullptr) throw StepError("the module has no view");
            if (step.contains("answers")) {
                for (const auto& a : step.at("answers")) messages_.answers.push_back(a.get<int>());
            }
            if (step.contains("set")) {
                auto* box = Find<QLineEdit>(root, step, step.at("set").get<std::string>());
                box->setText(QString::fromStdString(step.value("text", std::string())));
            }
            if (step.contains("choose")) {
                auto* box = Find<QComboBox>(root, step, step.at("choose").get<std::string>());
                if (step.contains("entry")) {
                    const std::string entry = step.at("entry").get<std::string>();
                    const int i = box->findText(QString::fromStdString(entry));
                    if (i < 0) throw StepError("no entry " + entry);
                    box->setCurrentIndex(i);
                } else {
                    box->setCurrentIndex(step.value("index", -1));
                }
            }
            if (step.contains("cell")) {
                const std::string name = step.at("cell").get<std::string>();
                auto* grid = Find<QTableWidget>(root, step, name);
                const int r = step.value("row", 0), c = step.value("column", 0);
                auto* item = grid->item(r, c);
                // The pages' grids take entries through their own floating edit box, so a cell
                // a user can click is one a script may enter; whether the entry stands is the
                // page's rule.
                const bool reachable = r >= 0 && c >= 0 && r < grid->rowCount() &&
                                       c < grid->columnCount() && !grid->isRowHidden(r) &&
                                       !grid->isColumnHidden(c) &&
                                       (!item || (item->flags() & Qt::ItemIsEnabled));
                if (!reachable)
                    throw StepError("cell " + std::to_string(r) + "," + std::to_string(c) + " of " +
                                    name + " is not one a user can enter");
                if (!item) grid->setItem(r, c, item = new QTableWidgetItem);
                item->setText(QString::fromStdString(step.value("text", std::string())));
            }
            if (step.contains("menu")) {
                const std::string name = step.at("menu").get<std::string>();
                auto* action = root->findChild<QAction*>(QString::fromStdString(name));
                if (!action) throw StepError("no menu entry " + name);
                if (!action->isVisible()) throw StepError("menu entry " + name + " is hidden");
                if (!action->isEnabled()) throw StepError("menu entry " + name + " is disabled");
                if (!step.contains("path")) {
                    action->trigger();
                } else if (fileAnswer) {
                    fileAnswer(step.at("path").get<std::string>());
                    action->trigger();
                } else {
                    TriggerAnsweringFileDialog(action, step.at("path").get<std::string>());
                }
            }
            if (step.contains("click")) {
                auto* button =
                    Find<QAbstractButton>(root, step, step.at("click").get<std::string>());
                button->click();
            }
            for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
        }
    } catch (const std::exception& e) {
        if (error) *error = "step " + std::to_string(number) + ": " + e.what();
        return false;
    }
    return true;
}

void FrameScript::Finish(FrameHost& host, int deviceIndex) {
    if (deviceIndex >= 0 && deviceIndex < host.DeviceCount()) {
        for (const auto& w : host.Device(deviceIndex).writes)
            out_ << "write," << Quote(w.menu) << "," << Quote(w.parameter) << ","
                 << TypeAndValue(w.value) << "\n";
    }
    if (host.IsModuleOpen()) {
        QWidget* page = PageInView(static_cast<QWidget*>(host.Module()->View()));
        out_ << "module,open," << (page ? page->objectName().toStdString() : std::string()) << "\n";
        host.CloseModuleNow();
    } else {
        out_ << "module,closed\n";
    }
    out_.flush();
}

QWidget* FrameScript::PageInView(QWidget* view) {
    if (view == nullptr) return nullptr;
    for (QWidget* w : view->findChildren<QWidget*>()) {
        if (w->inherits(kPageClass) && w->isVisibleTo(view)) return w;
    }
    return nullptr;
}

}  // namespace qdf::frame
