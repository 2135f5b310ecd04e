#pragma once

#include <functional>
#include <vector>

#include "base/text.h"

namespace rulemesh::oracle {

/// A field as its list shows it.
struct Field {
    Text Name;
    Text Type;
    Text Length;
    Text Domain;
    Text Enums;
};

inline bool IsBlank(const Text& cell)
{
    const std::size_t first = cell.find_first_not_of(u' ');
    if (first == Text::npos)
        return true;
    for (const char16_t character : cell.substr(first, cell.find_last_not_of(u' ') - first + 1)) {
        if (character != u'\t')
            return false;
    }
    return true;
}

inline Text Convert(const Field& s, const Field& t)
{
    const bool sString = s.Type == u"String" || s.Type == u"Multi-Byte String";
    const bool tString = t.Type == u"String" || t.Type == u"Multi-Byte String";
    if (t.Type == u"Date" && (s.Type == u"Date" || s.Type == u"UTC"))
        return u"utc(" + s.Name + u",0,2)";
    if (t.Type == u"Date")
        return s.Name;
    if (t.Type == u"UTC" && s.Type == u"Date")
        return u"utc(" + s.Name + u",0,2)";
    if (t.Type == u"UTC" && s.Type == u"UTC")
        return u"utc$(" + s.Name + u")";
    if (t.Type == u"UTC")
        return s.Name;
    if (tString && sString && s.Type != t.Type)
        return u"";
    if (tString && sString) {
        Text cut;
        for (const char16_t character : s.Name)
            cut += character == u'(' ? Text(u"(1,") : Text(1, character);
        return cut;
    }
    return s.Name;
}

/// The guess as a walk over every source for every target. `cell` gives the grid cell of a field part, or null when the
/// field has none; the first rule that finds a cell blank stays in it.
inline void Guess(const std::vector<Field>& sources, const std::vector<Field>& targets,
                  const std::function<Text*(const Text& fieldPart)>& cell)
{
    const auto isDateOrUtc = [](const Text& type) { return type == u"UTC" || type == u"Date"; };
    const auto fieldPart = [](const Text& name) { return name.size() < 10 ? Text() : name.substr(9); };
    if (sources.empty() || targets.empty())
        return;
    for (const Field& t : targets) {
        const auto write = [&](const Text& rule) {
            Text* const text = cell(fieldPart(t.Name));
            if (text != nullptr && IsBlank(*text))
                *text = rule;
        };
        bool matched = false;
        const std::size_t p = t.Name.find(u'(') + 1; // from 1, 0 when there is none
        for (const Field& s : sources) {
            if (isDateOrUtc(s.Type) || isDateOrUtc(t.Type))
                continue;
            if (t.Length >= s.Length && t.Type == s.Type && t.Name == s.Name) {
                if ((s.Enums.empty() && t.Enums.empty()) || t.Enums.find(s.Enums) != Text::npos) {
                    write(t.Name);
                    continue;
                }
                if (t.Domain != s.Domain) {
                    write(u"default()");
                    matched = true;
                    continue;
                }
            }
            if (fieldPart(s.Name) == fieldPart(t.Name)) {
                write(Convert(s, t));
                matched = true;
                if (s.Name == t.Name)
                    break;
                continue;
            }
            if (p > 10 && fieldPart(s.Name) == t.Name.substr(9, p - 10)) {
                write(Convert(s, t));
                matched = true;
            }
        }
        for (const Field& s : sources) {
            if (matched)
                break;
            if (s.Domain == t.Domain && t.Name == s.Name) {
                if (isDateOrUtc(t.Type))
                    write(Convert(s, t));
                else
                    write(s.Name.empty() ? Text(u"default()") : s.Name);
            }
            const Text behindPoint = t.Name.find(u'.') == Text::npos ? Text() : t.Name.substr(t.Name.find(u'.') + 1);
            if (t.Name == s.Name && (behindPoint == u"refcntu" || behindPoint == u"refcntd"))
                write(u"default()");
        }
        write(u"default()");
    }
}

} // namespace rulemesh::oracle
