#include "script/reconcile_dumps.h"

#include <algorithm>

#include "base/numbers.h"

namespace rulemesh {

namespace {

bool UserAcceptsLoss(std::int16_t IntOld, Platform& platform)
{
    const MessageButton answer = platform.ShowMessage(
        {.Text = u"Dump number removed or renumbered! Old:[DUMP " + PlainNumber(IntOld) +
                 u"]\r\n\r\nIf as designed ignore this warning (Press Ok), (Press Cancel) to preserve the previous "
                 u"Dump number and remain the data.",
         .Title = u"Dump(s) removed or renamed",
         .Buttons = {MessageButton::Ok, MessageButton::Cancel},
         .Icon = MessageIcon::Notice});
    return answer == MessageButton::Ok;
}

void AddDummyLine(std::int16_t IntOld, SyntaxBox& txtMainQuery, Platform& platform)
{
    const Text StrOld = PlainNumber(IntOld);
    txtMainQuery.Text(txtMainQuery.Text() + u"\r\n\r\ndump " + StrOld + u" | *** DUMMY ADDED TO PRESERVE RULES ***");
    platform.ShowMessage({.Text = u"dump " + StrOld + u" added at the end of the Script to preserve Rules",
                          .Icon = MessageIcon::Notice});
}

} // namespace

void ReconcileDumps(std::vector<std::int16_t>& IntNewNumbers, const std::vector<std::int16_t>& IntOldNumbers,
                    SyntaxBox& txtMainQuery, Platform& platform)
{
    if (IntOldNumbers.size() == 1 && IntOldNumbers.front() == IntNewNumbers.front())
        return;
    for (std::size_t index = 0; index < IntOldNumbers.size(); ++index) {
        const std::int16_t IntOld = IntOldNumbers[index];
        const bool found = std::find(IntNewNumbers.begin(), IntNewNumbers.end(), IntOld) != IntNewNumbers.end();
        if (IntOld < 1 || found || UserAcceptsLoss(IntOld, platform))
            continue;
        const bool sameLength = IntNewNumbers.size() == IntOldNumbers.size();
        if (IntNewNumbers.front() == 0 || !sameLength)
            AddDummyLine(IntOld, txtMainQuery, platform);
        if (sameLength) {
            txtMainQuery.Text(RegE_Replace(txtMainQuery.Text(), IntNewNumbers[index], u"dump " + PlainNumber(IntOld)));
            IntNewNumbers[index] = IntOld; // also when the statement stands in another script
        }
    }
}

Text RegE_Replace(TextView StrText, std::int16_t IntNumber, TextView StrReplacement)
{
    constexpr TextView StrKeyword = u"dump ";
    const Text StrNumber = PlainNumber(IntNumber);
    Text StrResult;
    std::size_t copied = 0;
    for (std::size_t hit = StrText.find(StrKeyword); hit != TextView::npos; hit = StrText.find(StrKeyword, hit + 1)) {
        const std::size_t number = std::min(StrText.find_first_not_of(u' ', hit + StrKeyword.size()), StrText.size());
        const std::size_t behind = number + StrNumber.size();
        const bool matches = StrText.substr(number, StrNumber.size()) == StrNumber && behind < StrText.size() &&
                             TextView(u" \t\n\r\f\v").find(StrText[behind]) != TextView::npos;
        if (!matches)
            continue;
        std::size_t start = hit;
        while (start > copied && StrText[start - 1] == u' ')
            --start;
        StrResult.append(StrText, copied, start - copied).append(StrReplacement);
        copied = behind + 1;
        hit = behind; // the next hit lies behind the white character
    }
    return StrResult.append(StrText, copied);
}

} // namespace rulemesh
