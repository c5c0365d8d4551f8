#include "WizardServices.h"

#include <QFileDialog>
#include <QString>

namespace qdf::wizard {

namespace {

// "QMV File (*.QMV) | *.QMV" is the description and the pattern; Qt wants "QMV File (*.QMV)".
QString QtFilter(const std::string& filter) {
    const auto bar = filter.find('|');
    return QString::fromStdString(filter.substr(0, bar)).trimmed();
}

}  // namespace

FileDialogResult QtDialogService::OpenFile(const std::string& filter, const std::string& initial) {
    const QString name = QFileDialog::getOpenFileName(
        nullptr, QString(), QString::fromStdString(initial), QtFilter(filter));
    return {name.toStdString(), false};
}

FileDialogResult QtDialogService::SaveFile(const std::string& filter, const std::string& offered) {
    const QString name = QFileDialog::getSaveFileName(
        nullptr, QString(), QString::fromStdString(offered), QtFilter(filter));
    return {name.toStdString(), false};
}

FileDialogResult ScriptedDialogService::Next() {
    if (answers.empty()) return {};
    FileDialogResult r = answers.front();
    answers.pop_front();
    return r;
}

FileDialogResult ScriptedDialogService::OpenFile(const std::string& filter, const std::string&) {
    requests.push_back("open " + filter);
    return Next();
}

FileDialogResult ScriptedDialogService::SaveFile(const std::string& filter,
                                                 const std::string& offered) {
    requests.push_back("save " + filter + " " + offered);
    return Next();
}

Services& WizardServices() {
    static Services services;
    return services;
}

}  // namespace qdf::wizard
