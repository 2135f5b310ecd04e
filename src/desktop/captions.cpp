#include "desktop/captions.h"

#include "desktop/qt_text.h"

namespace rulemesh {

std::size_t AccessKeyMark(TextView caption) noexcept
{
    std::size_t mark = caption.find(u'&');
    while (mark != TextView::npos && (mark + 1 == caption.size() || !QChar(caption[mark + 1]).isLetterOrNumber()))
        mark = caption.find(u'&', mark + 1);
    return mark;
}

int AccessKeyOf(TextView caption) noexcept
{
    const std::size_t mark = AccessKeyMark(caption);
    return mark == TextView::npos ? 0 : QChar(caption[mark + 1]).toUpper().unicode();
}

QString WithAccessKey(TextView caption)
{
    const std::size_t mark = AccessKeyMark(caption);
    QString text;
    for (std::size_t at = 0; at < caption.size(); ++at) {
        text += QChar(caption[at]);
        if (caption[at] == u'&' && at != mark)
            text += QLatin1Char('&');
    }
    return text;
}

QString WithoutAccessKey(TextView caption)
{
    QString text = ToQt(caption);
    const std::size_t mark = AccessKeyMark(caption);
    return mark == TextView::npos ? text : text.remove(static_cast<qsizetype>(mark), 1);
}

} // namespace rulemesh
