#pragma once
// What the page tests share: lists read back, boxes filled by name, the look of a refusal, a
// page checked as shown in the main control.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <sstream>
#include <string>
#include <vector>

#include "FakeHost.h"

namespace qdf::test {

inline const char* const kWizardTitle = "QDF300 Flow Configuration Wizard";

inline std::vector<std::string> Entries(const QComboBox* list) {
    std::vector<std::string> texts;
    for (int i = 0; i < list->count(); ++i) texts.push_back(list->itemText(i).toStdString());
    return texts;
}

inline void Choose(QComboBox* list, const std::string& text) {
    const int i = list->findText(QString::fromStdString(text));
    ASSERT_GE(i, 0) << "no entry " << text;
    list->setCurrentIndex(i);
}

inline std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, separator);) parts.push_back(part);
    return parts;
}

// "name=value;...": a box of the page gets the text, a list the entry of that text.
inline void SetByName(const QWidget& page, const std::string& entries) {
    for (const std::string& item : Split(entries, ';')) {
        const auto eq = item.find('=');
        const QString name = QString::fromStdString(item.substr(0, eq));
        const QString value = QString::fromStdString(item.substr(eq + 1));
        if (auto* box = page.findChild<QLineEdit*>(name))
            box->setText(value);
        else if (auto* list = page.findChild<QComboBox*>(name)) {
            list->setCurrentIndex(list->findText(value));
            if (!value.isEmpty() && list->currentIndex() < 0) ADD_FAILURE() << "no entry " << item;
        } else
            ADD_FAILURE() << "no box or list " << item;
    }
}

// "name=value;...": what a box or label of the page shows, or the entry a list shows.
inline void ExpectByName(const QWidget& page, const std::string& entries,
                         const std::string& where = std::string()) {
    for (const std::string& item : Split(entries, ';')) {
        const auto eq = item.find('=');
        const QString name = QString::fromStdString(item.substr(0, eq));
        QString shown = QStringLiteral("<none>");
        if (auto* box = page.findChild<QLineEdit*>(name)) shown = box->text();
        if (auto* label = page.findChild<QLabel*>(name)) shown = label->text();
        if (auto* list = page.findChild<QComboBox*>(name)) shown = list->currentText();
        EXPECT_EQ(shown.toStdString(), item.substr(eq + 1)) << where << " " << item;
    }
}

// The messages shown, in order, each a notice with OK under the wizard's title.
inline void ExpectRefusals(const FakeHost& host, const std::vector<std::string>& texts,
                           const std::string& where = std::string()) {
    EXPECT_EQ(host.Texts(), texts) << where;
    for (const Message& m : host.messages) {
        EXPECT_EQ(m.title, kWizardTitle) << where;
        EXPECT_EQ(std::vector<int>({m.kind, m.buttons, m.def}), std::vector<int>({2, 2, 4}))
            << where;
    }
}

// The notices shown, in order, each with OK under the information title.
inline void ExpectInformation(const FakeHost& host, const std::vector<std::string>& texts,
                              const std::string& where = std::string()) {
    EXPECT_EQ(host.Texts(), texts) << where;
    for (const Message& m : host.messages)
        EXPECT_EQ(m.title + " " + std::to_string(m.buttons), "QDF300 Information 2") << where;
}

// The page in view with its title and every named control shown.
inline void ExpectShown(const QWidget& page, const char* title,
                        const std::vector<const char*>& names) {
    EXPECT_TRUE(page.isVisible());
    const auto* label = page.findChild<QLabel*>("lblTitle");
    EXPECT_TRUE(label && label->isVisible() && label->text() == title) << title;
    for (const char* name : names) {
        const QWidget* w = page.findChild<QWidget*>(name);
        EXPECT_TRUE(w && w->isVisible()) << name;
    }
}

}  // namespace qdf::test
