#include "FrameDevice.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace qdf::frame {

namespace {

bool KnownType(const std::string& t) {
    return t == "int16" || t == "int32" || t == "float" || t == "double" || t == "string";
}

std::optional<qdf::Value> FromJsonValue(const QJsonValue& v, const std::string& type) {
    if (type == "string") {
        if (!v.isString()) return std::nullopt;
        return qdf::Value(v.toString().toStdString());
    }
    if (!v.isDouble()) return std::nullopt;
    // JSON holds no infinity: a number beyond the type's range would not save again.
    const double d = v.toDouble();
    if (!std::isfinite(d) || (type == "float" && !std::isfinite(static_cast<float>(d))))
        return std::nullopt;
    return ConvertToType(qdf::Value(d), type);
}

QJsonValue ToJsonValue(const qdf::Value& v) {
    if (v.isString()) return QString::fromStdString(v.str());
    if (v.isNumber()) return v.toDouble();
    return QJsonValue();
}

std::string NumberText(double d) {
    char buf[64];
    auto r = std::to_chars(buf, buf + sizeof buf, d);
    return std::string(buf, r.ptr);
}

}  // namespace

std::optional<qdf::Value> ConvertToType(const qdf::Value& value, const std::string& type) {
    if (type == "string") {
        if (value.isString()) return value;
        if (value.isNumber()) return qdf::Value(ValueText(value));
        return std::nullopt;
    }
    if (!value.isNumber()) return std::nullopt;
    const double d = value.toDouble();
    if (type == "double") return qdf::Value(d);
    if (type == "float") return qdf::Value(static_cast<float>(d));
    if (!std::isfinite(d)) return std::nullopt;
    const double r = std::nearbyint(d);
    if (type == "int16") {
        if (r < std::numeric_limits<std::int16_t>::min() ||
            r > std::numeric_limits<std::int16_t>::max())
            return std::nullopt;
        return qdf::Value(static_cast<std::int16_t>(r));
    }
    if (type == "int32") {
        if (r < std::numeric_limits<std::int32_t>::min() ||
            r > std::numeric_limits<std::int32_t>::max())
            return std::nullopt;
        return qdf::Value(static_cast<std::int32_t>(r));
    }
    return std::nullopt;
}

std::string ValueText(const qdf::Value& v) {
    switch (v.kind()) {
        case qdf::Value::Kind::Empty:
            return "";
        case qdf::Value::Kind::Bool:
            return v.toDouble() != 0 ? "true" : "false";
        case qdf::Value::Kind::Int16:
        case qdf::Value::Kind::Int32:
            return std::to_string(static_cast<long long>(v.toDouble()));
        case qdf::Value::Kind::Float:
            return NumberText(static_cast<double>(*v.get_if<float>()));
        case qdf::Value::Kind::Double:
            return NumberText(v.toDouble());
        case qdf::Value::Kind::String:
            return v.str();
        case qdf::Value::Kind::StringArray: {
            std::string s;
            for (const auto& e : v.strings()) s += (s.empty() ? "" : ", ") + e;
            return s;
        }
    }
    return "";
}

std::string DescribeValue(const qdf::Value& v) {
    static const char* const kNames[] = {"empty", "bool",   "int16",  "int32",
                                         "float", "double", "string", "strings"};
    std::string text = ValueText(v);
    if (v.isString()) text = "\"" + text + "\"";
    return std::string(kNames[static_cast<int>(v.kind())]) + " " + text;
}

QString JsonPlace(const QByteArray& bytes, int offset) {
    int line = 1, column = 1;
    const int end = std::clamp(offset, 0, static_cast<int>(bytes.size()));
    for (int i = 0; i < end; ++i) {
        if (bytes[i] == '\n') {
            ++line;
            column = 1;
        } else {
            ++column;
        }
    }
    return QString("line %1, column %2").arg(line).arg(column);
}

std::optional<FrameDevice> FrameDevice::FromJson(const QJsonObject& json, QString* error,
                                                 const QString& place) {
    auto fail = [&](const QString& where, const QString& why) -> std::optional<FrameDevice> {
        if (error) *error = place + where + ": " + why;
        return std::nullopt;
    };
    auto text = [](const QJsonValue& v) { return v.toString().toStdString(); };
    FrameDevice d;
    const QJsonValue name = json.value("device");
    if (!name.isUndefined() && !name.isString()) return fail("device", "not a text");
    d.name_ = text(name);
    const QJsonValue bus = json.value("bus");
    d.bus_ = text(bus);
    if (!bus.isString() || (d.bus_ != "HART" && d.bus_ != "FFH1"))
        return fail("bus", "must be \"HART\" or \"FFH1\"");
    const QJsonValue revision = json.value("revision");
    if (!revision.isUndefined()) {
        const double r = revision.toDouble(-1);
        if (!revision.isDouble() || r < 0 || r > 1e6 || r != std::floor(r))
            return fail("revision", "not a whole number");
        d.revision_ = static_cast<int>(r);
    }
    const QJsonValue params = json.value("parameters");
    if (!params.isArray()) return fail("parameters", "not a list");
    const QJsonArray list = params.toArray();
    for (qsizetype i = 0; i < list.size(); ++i) {
        QString where = QString("parameters[%1]").arg(i);
        if (!list[i].isObject()) return fail(where, "not an object");
        const QJsonObject p = list[i].toObject();
        FrameParameter fp;
        if (!p.value("name").isString() || p.value("name").toString().isEmpty())
            return fail(where, "a parameter without a name");
        fp.name = text(p.value("name"));
        where += " (" + QString::fromStdString(fp.name) + ")";
        const QJsonValue label = p.value("label");
        if (!label.isUndefined() && !label.isString()) return fail(where + ".label", "not a text");
        fp.label = text(label);
        fp.type = text(p.value("type"));
        if (!KnownType(fp.type)) return fail(where + ".type", "unknown type");
        if (d.Find(fp.name)) return fail(where, "named twice");
        auto value = FromJsonValue(p.value("value"), fp.type);
        if (!value) return fail(where + ".value", "not a value of its type");
        fp.value = *value;
        const QJsonValue enumeration = p.value("enumeration");
        if (!enumeration.isUndefined()) {
            if (!enumeration.isArray()) return fail(where + ".enumeration", "not a list");
            const QJsonArray entries = enumeration.toArray();
            for (qsizetype k = 0; k < entries.size(); ++k) {
                if (!entries[k].isString())
                    return fail(where + QString(".enumeration[%1]").arg(k), "not a text");
                fp.enumeration.push_back(text(entries[k]));
            }
        }
        d.params_.push_back(std::move(fp));
    }
    const QJsonValue menus = json.value("menus");
    if (!menus.isUndefined() && !menus.isObject()) return fail("menus", "not an object");
    const QJsonObject menuTable = menus.toObject();
    for (auto it = menuTable.begin(); it != menuTable.end(); ++it) {
        const QString where = "menus." + it.key();
        if (!it.value().isArray()) return fail(where, "not a list");
        std::vector<std::string> members;
        const QJsonArray entries = it.value().toArray();
        for (qsizetype k = 0; k < entries.size(); ++k) {
            const QString at = where + QString("[%1]").arg(k);
            if (!entries[k].isString()) return fail(at, "not a text");
            std::string member = text(entries[k]);
            if (!d.Find(member))
                return fail(at, "names unknown parameter " + QString::fromStdString(member));
            members.push_back(std::move(member));
        }
        d.menus_.emplace_back(it.key().toStdString(), std::move(members));
    }
    const QJsonValue bos = json.value("businessObjects");
    if (!bos.isUndefined() && !bos.isObject()) return fail("businessObjects", "not an object");
    const QJsonObject boTable = bos.toObject();
    for (auto it = boTable.begin(); it != boTable.end(); ++it) {
        const QString where = "businessObjects." + it.key();
        if (!it.value().isString()) return fail(where, "not a text");
        const auto decoded = QByteArray::fromBase64Encoding(
            it.value().toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
        if (!decoded) return fail(where, "not base64");
        d.businessObjects[it.key().toStdString()] =
            std::vector<std::uint8_t>(decoded.decoded.begin(), decoded.decoded.end());
    }
    return d;
}

std::optional<FrameDevice> FrameDevice::FromBytes(const QByteArray& bytes, const QString& fileName,
                                                  QString* error) {
    QJsonParseError pe;
    const QJsonDocument doc = QJsonDocument::fromJson(bytes, &pe);
    if (pe.error != QJsonParseError::NoError) {
        if (error) *error = fileName + ": " + JsonPlace(bytes, pe.offset) + ": " + pe.errorString();
        return std::nullopt;
    }
    if (!doc.isObject()) {
        if (error) *error = fileName + ": not a device description (no JSON object)";
        return std::nullopt;
    }
    return FromJson(doc.object(), error, fileName + ": ");
}

std::optional<FrameDevice> FrameDevice::Load(const QString& path, QString* error) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        if (error) *error = QString("cannot open %1").arg(path);
        return std::nullopt;
    }
    return FromBytes(f.readAll(), path, error);
}

QJsonObject FrameDevice::ToJson() const {
    QJsonObject json;
    json["device"] = QString::fromStdString(name_);
    json["bus"] = QString::fromStdString(bus_);
    json["revision"] = revision_;
    QJsonObject menus;
    for (const auto& [menu, members] : menus_) {
        QJsonArray a;
        for (const auto& m : members) a.append(QString::fromStdString(m));
        menus[QString::fromStdString(menu)] = a;
    }
    json["menus"] = menus;
    QJsonArray params;
    for (const auto& p : params_) {
        QJsonObject o;
        o["name"] = QString::fromStdString(p.name);
        o["type"] = QString::fromStdString(p.type);
        o["value"] = ToJsonValue(p.value);
        if (!p.label.empty()) o["label"] = QString::fromStdString(p.label);
        if (!p.enumeration.empty()) {
            QJsonArray e;
            for (const auto& s : p.enumeration) e.append(QString::fromStdString(s));
            o["enumeration"] = e;
        }
        params.append(o);
    }
    json["parameters"] = params;
    if (!businessObjects.empty()) {
        QJsonObject bos;
        for (const auto& [key, bytes] : businessObjects) {
            const QByteArray b(reinterpret_cast<const char*>(bytes.data()),
                               static_cast<qsizetype>(bytes.size()));
            bos[QString::fromStdString(key)] = QString::fromLatin1(b.toBase64());
        }
        json["businessObjects"] = bos;
    }
    return json;
}

const FrameParameter* FrameDevice::Find(const std::string& name) const {
    for (const auto& p : params_)
        if (p.name == name) return &p;
    return nullptr;
}

bool FrameDevice::IsMenu(const std::string& name) const {
    for (const auto& m : menus_)
        if (m.first == name) return true;
    return false;
}

std::string FrameDevice::MenusOf(const std::string& parameter) const {
    std::string out;
    for (const auto& [menu, members] : menus_) {
        for (const auto& m : members) {
            if (m == parameter) {
                out += (out.empty() ? "" : ", ") + menu;
                break;
            }
        }
    }
    return out;
}

bool FrameDevice::SetValue(const std::string& name, const qdf::Value& value) {
    for (auto& p : params_) {
        if (p.name != name) continue;
        auto converted = ConvertToType(value, p.type);
        if (!converted) return false;
        p.value = *converted;
        // Copy first: a listener may remove itself or others while being told.
        auto listeners = listeners_;
        for (auto& [id, fn] : listeners)
            if (listeners_.count(id)) fn(name);
        return true;
    }
    return false;
}

int FrameDevice::AddListener(std::function<void(const std::string&)> listener) {
    listeners_[nextListener_] = std::move(listener);
    return nextListener_++;
}

void FrameDevice::RemoveListener(int id) {
    listeners_.erase(id);
}

}  // namespace qdf::frame
