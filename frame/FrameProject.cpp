#include "FrameProject.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace qdf::frame {

namespace {
constexpr const char* kProjectFormat = "qdf-frame-project";
}  // namespace

QByteArray ProjectFileBytes(const std::vector<const FrameDevice*>& devices) {
    QJsonObject root;
    root["format"] = kProjectFormat;
    root["version"] = 1;
    QJsonArray list;
    for (const FrameDevice* d : devices) list.append(d->ToJson());
    root["devices"] = list;
    return QJsonDocument(root).toJson();
}

std::optional<std::vector<FrameDevice>> ReadProjectFile(const QByteArray& bytes,
                                                        const QString& fileName, QString* error) {
    auto fail = [&](const QString& why) -> std::optional<std::vector<FrameDevice>> {
        if (error) *error = fileName + ": " + why;
        return std::nullopt;
    };
    QJsonParseError pe;
    const QJsonDocument doc = QJsonDocument::fromJson(bytes, &pe);
    if (pe.error != QJsonParseError::NoError)
        return fail(JsonPlace(bytes, pe.offset) + ": " + pe.errorString());
    if (!doc.isObject() || doc.object().value("format").toString() != kProjectFormat)
        return fail("not a frame project");
    const QJsonValue devices = doc.object().value("devices");
    if (!devices.isArray()) return fail("devices: not a list");
    const QJsonArray list = devices.toArray();
    std::vector<FrameDevice> loaded;
    for (qsizetype i = 0; i < list.size(); ++i) {
        const QString place = fileName + QString(": devices[%1]").arg(i);
        if (!list[i].isObject()) {
            if (error) *error = place + ": not an object";
            return std::nullopt;
        }
        auto d = FrameDevice::FromJson(list[i].toObject(), error, place + ".");
        if (!d) return std::nullopt;
        loaded.push_back(std::move(*d));
    }
    return loaded;
}

}  // namespace qdf::frame
