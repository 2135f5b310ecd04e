#include "script/reconcile_dumps.h"

#include <algorithm>

#include "base/numbers.h"
#include "script/reg_e_replace.h"

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
            const Text StrPattern = u" {0,}dump {1,}" + PlainNumber(IntNewNumbers[index]) + u"\\s";
            txtMainQuery.Text(RegE_Replace(txtMainQuery.Text(), StrPattern, u"dump " + PlainNumber(IntOld), true));
            IntNewNumbers[index] = IntOld; // also when the statement stands in another script
        }
    }
}

} // namespace rulemesh
