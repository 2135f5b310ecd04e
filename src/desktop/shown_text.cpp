#include "desktop/shown_text.h"

#include <algorithm>

namespace rulemesh {

namespace {

constexpr QChar SoftBreak = QChar::LineSeparator;
constexpr char16_t ControlPictures = 0x2400; // the pictures of the control characters, in their order
constexpr char16_t DeletePicture = 0x2421;
constexpr char16_t NewLinePicture = 0x2424;
constexpr char16_t ReturnPicture = 0x21B5;
constexpr char16_t ParagraphPicture = 0x00B6;

bool IsLineEndAt(TextView text, std::size_t at) noexcept
{
    return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
}

bool IsLoneSurrogateAt(TextView text, std::size_t at) noexcept
{
    if (QChar::isHighSurrogate(text[at]))
        return at + 1 == text.size() || !QChar::isLowSurrogate(text[at + 1]);
    return QChar::isLowSurrogate(text[at]) && (at == 0 || !QChar::isHighSurrogate(text[at - 1]));
}

QChar PictureOf(char16_t character) noexcept
{
    switch (character) {
    case u'\t':
    case u'\n':
        return character;
    case u'\r':
        return SoftBreak;
    case 0x7F:
        return DeletePicture;
    case 0x85:
        return NewLinePicture;
    case QChar::LineSeparator:
        return ReturnPicture;
    case QChar::ParagraphSeparator:
        return ParagraphPicture;
    case QChar::ObjectReplacementCharacter:
        return QChar::ReplacementCharacter;
    default:
        break;
    }
    if (character < u' ')
        return static_cast<char16_t>(ControlPictures + character);
    const bool control = character >= 0x80 && character < 0xA0;
    return control || QChar::isNonCharacter(character) ? QChar(QChar::ReplacementCharacter) : QChar(character);
}

// What was typed, with the line ends that the model keeps.
Text TypedText(QStringView shown)
{
    Text text;
    for (const QChar character : shown) {
        if (character == QLatin1Char('\n') || character == SoftBreak)
            text += LineEnd;
        else
            text += character.unicode();
    }
    return text;
}

} // namespace

QString ShownText(TextView text)
{
    QString shown;
    shown.reserve(static_cast<qsizetype>(text.size()));
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (IsLineEndAt(text, at))
            ++at;
        shown += IsLoneSurrogateAt(text, at) ? QChar(QChar::ReplacementCharacter) : PictureOf(text[at]);
    }
    return shown;
}

std::size_t ModelPosition(TextView text, qsizetype shownPosition)
{
    std::size_t at = 0;
    for (; shownPosition > 0 && at < text.size(); --shownPosition)
        at += IsLineEndAt(text, at) ? 2 : 1;
    return at;
}

int ShownPosition(TextView text, std::size_t position)
{
    int shown = 0;
    for (std::size_t at = 0; at < std::min(position, text.size()); ++shown)
        at += IsLineEndAt(text, at) ? 2 : 1;
    return shown;
}

Text EditedText(TextView text, const QString& before, const QString& after)
{
    const qsizetype shorter = std::min(before.size(), after.size());
    const auto difference = std::mismatch(before.begin(), before.begin() + shorter, after.begin());
    const qsizetype front = difference.first - before.begin();
    qsizetype back = 0;
    while (back < shorter - front && before[before.size() - 1 - back] == after[after.size() - 1 - back])
        ++back;
    const std::size_t from = ModelPosition(text, front);
    const std::size_t to = from + ModelPosition(text.substr(from), before.size() - back - front);
    return Text(text.substr(0, from)) + TypedText(QStringView(after).mid(front, after.size() - back - front)) +
           Text(text.substr(to));
}

} // namespace rulemesh
