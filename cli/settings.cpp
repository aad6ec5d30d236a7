#include "cli/settings.h"

#include "model/jex/zubfields.h"

namespace Cli {
namespace {

template <class Core>
QList<Setting> settingsOf(const Core &core, const JEX::FieldTable<Core> &table)
{
    QList<Setting> settings;
    for (const JEX::Field<Core> *field = table.begin; field != table.begin + table.size; ++field) {
        Json value;
        if (field->text)
            value = toStd(core.*field->text);
        else if (field->flag)
            value = core.*field->flag;
        else if (field->rule.kind == JEX::Rule::Words)
            value = toStd(field->rule.toText(core.*field->number));
        else
            value = core.*field->number;
        if (qstrcmp(field->name, "number") != 0)
            settings.append({field->name, value});
    }
    return settings;
}

} // namespace

QList<Setting> settingsOf(const RTLJEX::AnyCore &core)
{
    return core.standard ? settingsOf(*core.standard, JEX::standardFields())
                         : settingsOf(*core.lite, JEX::liteFields());
}

QString settingText(const Json &value)
{
    return value.is_string() ? fromStd(value.get<std::string>()) : fromStd(value.dump());
}

} // namespace Cli
