#include "wide_object.h"

#include "generated_object.h"

namespace rulemesh {

namespace {

std::string WideField(int field) { return "FIELD__" + std::to_string(field + 1); }

std::string WideCatalogue()
{
    std::string table = std::string("    <") + WideTable + ">\n";
    for (int field = 0; field < FieldsOfWideTable; ++field) {
        const std::string number = std::to_string(field + 1);
        table += "      <" + WideField(field) + " No=\"" + number + "\" FNo=\"" + number +
                 "\" MAN=\"N\" TYPE=\"M\" LENG=\"30\" DSCA=\"the field " + number + "\" ADJU=\"L\" CASE=\"N\"/>\n";
    }
    return table + "    </" + WideTable + ">\n";
}

std::string WideDump(int number)
{
    std::string dump = "<DUMP No=\"" + std::to_string(number) + "\" TT=\"" + WideTable + "\" TXT=\"| wide\">\n";
    for (int field = 0; field < FieldsOfWideTable; ++field)
        dump += "    <" + WideField(field) + " TEXT=\"\" TYPE=\"0\">concat(sraaa001.name, \"" +
                std::to_string(number * field) + "\")</" + WideField(field) + ">\n";
    return dump + "  </DUMP>";
}

void ReplaceDump(std::string& object, int number)
{
    const std::string end = "</DUMP>";
    const std::size_t from = object.find("<DUMP No=\"" + std::to_string(number) + "\"");
    object.replace(from, object.find(end, from) + end.size() - from, WideDump(number));
}

} // namespace

const std::string& WideObject()
{
    static const std::string text = [] {
        std::string object = GeneratedObject(MediumObject);
        object.insert(object.find("  </MSCRIPT>"), std::string("    <") + WideTable + "/>\n");
        object.insert(object.find("  </TARTAB>"), WideCatalogue());
        ReplaceDump(object, 1);
        ReplaceDump(object, 2);
        return object;
    }();
    return text;
}

} // namespace rulemesh
