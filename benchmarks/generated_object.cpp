#include "generated_object.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace rulemesh {

namespace {

constexpr std::array<std::string_view, 16> Words = {"ORDER",   "CUSTOMER", "ITEM",   "PRICE", "DATE",   "QUANTITY",
                                                    "ADDRESS", "CITY",     "REGION", "CODE",  "STATUS", "SHIPPED",
                                                    "UNIT",    "NAME",     "NUMBER", "LEVEL"};
constexpr std::array<std::string_view, 6> Types = {"L", "M", "S", "F", "K", "U"};

constexpr int FieldsOfTable = 24;
constexpr int DumpsOfQuery = 3;
constexpr int MostDumps = 999; // the numbers that a dump may have

// A generator of its own, so that the objects are the same with every standard library.
class Random {
public:
    int Below(int limit) noexcept
    {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return static_cast<int>((state_ >> 33) % static_cast<std::uint64_t>(limit));
    }
    template <typename List> std::string_view Of(const List& list) noexcept
    {
        return list[static_cast<std::size_t>(Below(static_cast<int>(list.size())))];
    }

private:
    std::uint64_t state_ = 20;
};

// Five letters and three digits, a different one for each number: as "SRAAB001".
std::string TableCode(std::string_view kind, int number)
{
    std::string code(kind);
    int rest = number / 999;
    for (int place = 0; place < 3; ++place, rest /= 26)
        code.insert(kind.size(), 1, static_cast<char>('A' + rest % 26));
    const std::string digits = std::to_string(number % 999 + 1);
    return code + std::string(3 - digits.size(), '0') + digits;
}

std::string Lower(std::string text)
{
    for (char& letter : text)
        letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    return text;
}

std::string FieldName(int field)
{
    std::string name(Words[static_cast<std::size_t>(field) % Words.size()]);
    if (field >= static_cast<int>(Words.size()))
        name += "__" + std::to_string(field / static_cast<int>(Words.size()));
    return name;
}

class Generator {
public:
    explicit Generator(std::size_t bytes) : bytes_(bytes) { text_.reserve(bytes + bytes / 8); }

    std::string Object()
    {
        // Half of the object is catalogue, as in the objects of a real conversion.
        const std::size_t tableBytes = 2600;
        tables_ = std::max(1, static_cast<int>(bytes_ * 2 / 5 / tableBytes));
        targets_ = std::max(1, tables_ / 4);
        queries_ = std::max(1, std::min(MostDumps / DumpsOfQuery, tables_ / 2));
        text_ += "<GENOBJ01>\n";
        SourceTables();
        Precondition();
        for (int query = 0; query < queries_; ++query)
            Query(query);
        Functions();
        TargetNames();
        Catalogue("SRCTAB", "SR", tables_, false);
        Catalogue("TARTAB", "TG", targets_, true);
        Dumps();
        text_ += "</GENOBJ01>\n";
        return std::move(text_);
    }

private:
    void Attribute(std::string_view name, std::string_view value)
    {
        text_.append(" ").append(name).append("=\"").append(value).append("\"");
    }

    void SourceTables()
    {
        text_ += "  <SRCTBL>";
        for (int table = 0; table < queries_; ++table)
            text_.append(table == 0 ? "" : ",").append(Lower(TableCode("SR", table)));
        text_ += "</SRCTBL>\n";
    }

    void Precondition()
    {
        text_ += "  <PREC TEXT=\"precondition of a generated object\">| conversion object\n\nbegin\n";
        for (int table = 0; table < queries_; ++table)
            text_ += "        migrate " + Lower(TableCode("SR", table)) + "   | table " + std::to_string(table) + "\n";
        text_ += "end</PREC>\n";
    }

    void Query(int query)
    {
        const std::string table = Lower(TableCode("SR", query));
        text_ += "  <QUERY";
        Attribute("ST", table);
        Attribute("TEXT", "");
        text_ += ">| " + table + "\nselect\n";
        for (int field = 0; field < FieldsOfTable; ++field)
            text_ += "        " + table + "." + Lower(FieldName(field)) + ",\n";
        text_ += "from    " + table + "\nfor each row\n";
        for (int dump = 0; dump < DumpsOfQuery; ++dump) {
            text_ += "        if trim(" + table + ".region) &lt;&gt; \"" + std::to_string(dump) + "\" then\n";
            text_ += "                dump " + std::to_string(query * DumpsOfQuery + dump + 1) + " | rows of kind " +
                     std::to_string(dump) + "\n        end\n";
        }
        text_ += "finally\n        print \"" + table + ": \", rows_read, rows_written\nend</QUERY>\n";
    }

    void Functions()
    {
        text_ += "  <FUNCTIONS>| functions\n\nfunction month_end(value)\n        y := year(value)\n"
                 "        if month(value) &gt; 11 then\n                y := y + 1\n        end\n"
                 "        return make_date(y, month(value) + 1, 1) - 1\nend\n</FUNCTIONS>\n"
                 "  <VAR>include \"convert\"\ninclude &lt;dates&gt;\n\ndate    cutoff        | oldest row</VAR>\n";
    }

    void TargetNames()
    {
        text_ += "  <MSCRIPT>\n";
        for (int table = 0; table < targets_; ++table)
            text_ += "    <" + TableCode("TG", table) + "/>\n";
        text_ += "  </MSCRIPT>\n";
    }

    void Catalogue(const std::string& list, std::string_view kind, int tables, bool isTarget)
    {
        text_ += "  <" + list + ">\n";
        for (int table = 0; table < tables; ++table) {
            const std::string code = TableCode(kind, table);
            text_ += "    <" + code + ">\n";
            for (int field = 0; field < FieldsOfTable; ++field)
                Field(field, isTarget);
            text_ += "    </" + code + ">\n";
        }
        text_ += "  </" + list + ">\n";
    }

    void Field(int field, bool isTarget)
    {
        const std::string name = FieldName(field);
        const std::string number = std::to_string(field + 1);
        const std::string_view type = random_.Of(Types);
        text_ += "      <" + name;
        if (isTarget)
            Attribute("No", number);
        Attribute("FNo", number);
        Attribute("MAN", random_.Below(4) == 0 ? "Y" : "N");
        Attribute("TYPE", type);
        Attribute(type == "L" || type == "F" ? "DIGB" : "LENG", std::to_string(random_.Below(60) + 1));
        if (type == "F")
            Attribute("DIGA", "2");
        Attribute("DSCA", "the " + Lower(name) + " of the row");
        Attribute("ADJU", type == "L" ? "R" : "L");
        Attribute("CASE", "N");
        if (random_.Below(5) == 0)
            Attribute("DOMAIN", Lower(std::string(random_.Of(Words))) + "s.id");
        text_ += "/>\n";
    }

    // As many dumps as there are numbers; what is missing to the wanted size comes as longer rules.
    void Dumps()
    {
        const int dumps = queries_ * DumpsOfQuery;
        const std::size_t rest = bytes_ > text_.size() ? bytes_ - text_.size() : 0;
        const std::size_t shortRules = static_cast<std::size_t>(dumps) * FieldsOfTable * 90;
        const int lines = std::max(1, static_cast<int>((rest - std::min(rest, shortRules)) / 60 /
                                                       (static_cast<std::size_t>(dumps) * FieldsOfTable)));
        for (int dump = 0; dump < dumps; ++dump) {
            text_ += "  <DUMP";
            Attribute("No", std::to_string(dump + 1));
            Attribute("TT", TableCode("TG", dump % targets_));
            Attribute("TXT", "rows of kind " + std::to_string(dump % DumpsOfQuery));
            text_ += ">\n";
            for (int field = 0; field < FieldsOfTable; ++field)
                Rule(Lower(TableCode("SR", dump / DumpsOfQuery)), field, lines);
            text_ += "  </DUMP>\n";
        }
    }

    void Rule(const std::string& table, int field, int lines)
    {
        const std::string name = FieldName(field);
        text_ += "    <" + name;
        Attribute("TEXT", random_.Below(8) == 0 ? "as agreed with the department" : "");
        Attribute("TYPE", lines > 1 ? "1" : "0");
        text_ += ">" + table + "." + Lower(name);
        for (int line = 1; line < lines; ++line)
            text_ += "&#13;\nif " + table + ".quantity &gt; " + std::to_string(random_.Below(90)) +
                     " then status := \"" + Lower(std::string(random_.Of(Words))) + "\"";
        text_ += "</" + name + ">\n";
    }

    std::size_t bytes_;
    std::string text_;
    Random random_;
    int tables_ = 0;
    int targets_ = 0;
    int queries_ = 0;
};

} // namespace

std::string GeneratedObject(std::size_t bytes) { return Generator(bytes).Object(); }

} // namespace rulemesh
