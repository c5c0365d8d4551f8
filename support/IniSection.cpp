#include "IniSection.h"

#include <fstream>
#include <stdexcept>

#include "AnsiText.h"

namespace qdf {

namespace detail {

std::string FoldCase(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return out;
}

}  // namespace detail

clsIniEntry& clsIniSection::AddEntry(std::string_view key) {
    if (clsIniEntry* e = entries_.Find(key)) return *e;
    return entries_.Add(key, clsIniEntry(std::string(key)));
}

clsIniEntry& clsIniSection::AddNewEntry(std::string_view key) {
    if (entries_.Find(key))
        throw std::invalid_argument("entry \"" + std::string(key) + "\" exists in [" + name_ + "]");
    return entries_.Add(key, clsIniEntry(std::string(key)));
}

void clsIniSection::Remove(std::string_view key) {
    if (!entries_.Remove(key))
        throw std::out_of_range("no entry \"" + std::string(key) + "\" in [" + name_ + "]");
}

void clsIniSection::Remove(int index) {
    if (!entries_.RemoveAt(index))
        throw std::out_of_range("no entry " + std::to_string(index) + " in [" + name_ + "]");
}

clsIniEntry& clsIniSection::Item(std::string_view key) const {
    if (clsIniEntry* e = entries_.Find(key)) return *e;
    throw std::out_of_range("no entry \"" + std::string(key) + "\" in [" + name_ + "]");
}

clsIniEntry& clsIniSection::Item(int index) const {
    if (clsIniEntry* e = entries_.At(index)) return *e;
    throw std::out_of_range("no entry " + std::to_string(index) + " in [" + name_ + "]");
}

clsIniSection& IniSections::GetOrAdd(std::string_view name) {
    if (clsIniSection* s = sections_.Find(name)) return *s;
    return sections_.Add(name, clsIniSection(std::string(name)));
}

clsIniSection& IniSections::Item(std::string_view name) const {
    if (clsIniSection* s = sections_.Find(name)) return *s;
    throw std::out_of_range("no section [" + std::string(name) + "]");
}

namespace {

std::string_view TrimBlanks(std::string_view s) {
    auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!s.empty() && blank(s.front())) s.remove_prefix(1);
    while (!s.empty() && blank(s.back())) s.remove_suffix(1);
    return s;
}

void TakeLine(std::string_view raw, clsIniSection*& current, IniSections& out) {
    std::string converted;
    std::string_view line = TrimBlanks(AnsiAsUtf8(raw, converted));
    if (line.empty() || line.front() == ';') return;
    if (line.size() >= 2 && line.front() == '[' && line.back() == ']') {
        current = &out.GetOrAdd(line.substr(1, line.size() - 2));
        return;
    }
    if (!current) return;
    size_t eq = line.find('=');
    if (eq == 0 || eq == std::string_view::npos) return;
    current->AddEntry(line.substr(0, eq)).SetValue(std::string(line.substr(eq + 1)));
}

}  // namespace

bool ReadIniText(std::istream& in, IniSections& out) {
    // read() reports a failing device through badbit, where other ways of pulling the whole
    // stream would throw or stop silently.
    std::string data;
    char buf[4096];
    while (in.read(buf, sizeof buf) || in.gcount() > 0) {
        data.append(buf, static_cast<size_t>(in.gcount()));
        if (in.eof()) break;
    }
    if (in.bad()) return false;

    clsIniSection* current = nullptr;
    size_t start = 0;
    for (size_t i = 0; i <= data.size(); ++i) {
        if (i == data.size() || data[i] == '\n' || data[i] == '\r') {
            TakeLine(std::string_view(data).substr(start, i - start), current, out);
            start = i + 1;
        }
    }
    return true;
}

bool ReadIniFile(const std::string& path, IniSections& out) {
    std::ifstream file(path, std::ios::binary);
    if (!file.is_open()) return false;
    return ReadIniText(file, out);
}

IniSections& ParsedIniSections() {
    static IniSections sections;
    return sections;
}

bool ReadIniFile(const std::string& path) {
    ParsedIniSections().Clear();
    return ReadIniFile(path, ParsedIniSections());
}

}  // namespace qdf
