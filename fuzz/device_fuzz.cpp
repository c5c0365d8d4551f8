// Any bytes read as a device description: refused with a message that names the file and the
// place, or read into a device whose description reads back to the same device.
#include <QByteArray>
#include <QJsonDocument>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "FrameDevice.h"

using qdf::frame::FrameDevice;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QString error;
    const auto device = FrameDevice::FromBytes(bytes, "fuzz.json", &error);
    if (!device) {
        // The file, a colon, then the place and what is wrong there.
        if (!error.startsWith("fuzz.json: ") || error.size() <= 11) std::abort();
        return 0;
    }
    const QByteArray written = QJsonDocument(device->ToJson()).toJson();
    QString again;
    const auto back = FrameDevice::FromBytes(written, "again.json", &again);
    if (!back || back->ToJson() != device->ToJson()) std::abort();
    return 0;
}
