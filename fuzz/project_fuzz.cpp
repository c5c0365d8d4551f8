// Any bytes read as the frame's project file: refused with a message that names the file and
// the place, or read into devices that save to a project reading back the same.
#include <QByteArray>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "FrameProject.h"

using namespace qdf::frame;

namespace {
QByteArray Saved(const std::vector<FrameDevice>& devices) {
    std::vector<const FrameDevice*> list;
    for (const FrameDevice& d : devices) list.push_back(&d);
    return ProjectFileBytes(list);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QString error;
    const auto devices = ReadProjectFile(bytes, "fuzz.qdfproject", &error);
    if (!devices) {
        if (!error.startsWith("fuzz.qdfproject: ") || error.size() <= 17) std::abort();
        return 0;
    }
    const QByteArray saved = Saved(*devices);
    QString again;
    const auto back = ReadProjectFile(saved, "again.qdfproject", &again);
    if (!back || back->size() != devices->size() || Saved(*back) != saved) std::abort();
    return 0;
}
