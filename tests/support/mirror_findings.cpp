#include "support/mirror_findings.h"

#include <algorithm>

#include <QTextDocumentFragment>

#include "desktop/captions.h"

namespace rulemesh {

namespace {

// The stretch of a long text around the first place where it differs from another one.
QString Around(const QString& text, const QString& other)
{
    constexpr qsizetype Before = 15;
    constexpr qsizetype Length = 60;
    const qsizetype common = std::min(text.size(), other.size());
    const qsizetype at = std::mismatch(text.begin(), text.begin() + common, other.begin()).first - text.begin();
    const qsizetype from = std::max<qsizetype>(0, at - Before);
    QString stretch = text.mid(from, Length);
    stretch.replace(QLatin1Char('\n'), QStringLiteral("\\n")).replace(QChar::LineSeparator, QStringLiteral("\\r"));
    return QStringLiteral("\"%1%2%3\" (%4 long)")
        .arg(from > 0 ? QStringLiteral("...") : QString(), stretch,
             from + Length < text.size() ? QStringLiteral("...") : QString())
        .arg(text.size());
}

QString YesOrNo(bool value) { return value ? QStringLiteral("yes") : QStringLiteral("no"); }

} // namespace

void Findings::Compare(const QString& what, const QString& shown, const QString& held)
{
    if (shown != held)
        Say(QStringLiteral("%1: the %2 shows %3, the view holds %4")
                .arg(what, witness_, Around(shown, held), Around(held, shown)));
}

void Findings::Compare(const QString& what, int shown, int held)
{
    if (shown != held)
        Say(QStringLiteral("%1: the %2 shows %3, the view holds %4").arg(what, witness_).arg(shown).arg(held));
}

void Findings::Compare(const QString& what, bool shown, bool held)
{
    if (shown != held)
        Say(QStringLiteral("%1: the %2 shows %3, the view holds %4")
                .arg(what, witness_, YesOrNo(shown), YesOrNo(held)));
}

void Findings::Say(const QString& sentence)
{
    sentences_.push_back(QStringLiteral("%1 %2").arg(name_, sentence).toStdString());
}

QString Seen(const QString& text)
{
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

QString PlainCaption(TextView caption) { return WithoutAccessKey(caption); }

bool IsSeen(const View& view)
{
    for (const View* at = &view; at != nullptr; at = at->Parent()) {
        if (!at->IsShown())
            return false;
    }
    return true;
}

bool IsUsable(const View& view)
{
    for (const View* at = &view; at != nullptr; at = at->Parent()) {
        if (!at->Enabled())
            return false;
    }
    return true;
}

} // namespace rulemesh
