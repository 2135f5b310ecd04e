#include "host/files/object_encoding.h"

#include <optional>

#include <QRegularExpression>
#include <QString>
#include <QStringDecoder>

#include "base/code_page.h"
#include "base/utf8.h"
#include "host/files/host_error.h"

namespace rulemesh {

namespace {

// The declaration, and in it the encoding, are plain ASCII in every encoding that is told by its declaration.
constexpr qsizetype LongestDeclaration = 400;

const QRegularExpression& DeclaredEncoding()
{
    static const QRegularExpression pattern(
        QStringLiteral(R"re(^(<\?xml\s[^>]*?encoding\s*=\s*)(?:"([^"]*)"|'([^']*)'))re"));
    return pattern;
}

QString EncodingNamedBy(const QByteArray& bytes)
{
    const auto match =
        DeclaredEncoding().match(QString::fromLatin1(bytes.first(std::min(bytes.size(), LongestDeclaration))));
    return match.captured(2) + match.captured(3);
}

// In a text that has been converted, the declaration must tell the truth again.
QByteArray DeclaredAsUtf8(const QString& text)
{
    const auto match = DeclaredEncoding().match(text.first(std::min(text.size(), LongestDeclaration)));
    const QString named = match.captured(2) + match.captured(3);
    if (named.isEmpty() || named.compare(QLatin1String("utf-8"), Qt::CaseInsensitive) == 0)
        return text.toUtf8();
    return (match.captured(1) + QStringLiteral("\"UTF-8\"") + text.mid(match.capturedEnd())).toUtf8();
}

// Half of a pair is no character, and would be lost on the way to the designer.
void CheckPairs(const QString& text)
{
    int line = 1;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        if (text[at].isSurrogate() && !isPair)
            throw HostError(
                QStringLiteral("The file is damaged: line %1 holds half of a character (a lone surrogate).").arg(line));
        at += isPair ? 1 : 0;
        line += text[at] == u'\n' ? 1 : 0;
    }
}

// How many bytes a character takes at least.
qsizetype UnitOf(QStringConverter::Encoding encoding)
{
    const QByteArrayView name = QStringConverter::nameForEncoding(encoding);
    return name.startsWith("UTF-32") ? 4 : name.startsWith("UTF-16") ? 2 : 1;
}

QByteArray DecodedBy(QStringConverter::Encoding encoding, const QByteArray& bytes)
{
    QStringDecoder decoder(encoding);
    const QString text = decoder(bytes);
    CheckPairs(text);
    if (decoder.hasError() || bytes.size() % UnitOf(encoding) != 0)
        throw HostError(QStringLiteral("The file is damaged: it begins as %1, but holds bytes that are none.")
                            .arg(QLatin1String(QStringConverter::nameForEncoding(encoding))));
    return DeclaredAsUtf8(text);
}

int LineOfFirstBadByte(const QByteArray& bytes)
{
    int line = 1;
    for (const QByteArray& text : bytes.split('\n')) {
        if (!text.isValidUtf8())
            break;
        ++line;
    }
    return line;
}

QByteArray CheckedUtf8(const QByteArray& bytes)
{
    if (!bytes.isValidUtf8())
        throw HostError(QStringLiteral("Line %1 holds a character that is not UTF-8. If the file has another encoding, "
                                       "name it in its first line, such as <?xml version=\"1.0\" "
                                       "encoding=\"windows-1252\"?>.")
                            .arg(LineOfFirstBadByte(bytes)));
    return bytes;
}

} // namespace

QByteArray XmlToUtf8(const QByteArray& bytes)
{
    const std::optional<QStringConverter::Encoding> found = QStringConverter::encodingForData(bytes, u'<');
    if (found && *found != QStringConverter::Utf8)
        return DecodedBy(*found, bytes);

    const QString named = found ? QString() : EncodingNamedBy(bytes).toLower();
    if (named.isEmpty() || named == u"utf-8" || named == u"us-ascii" || named == u"ascii")
        return CheckedUtf8(bytes);
    if (named == u"iso-8859-1" || named == u"latin1")
        return DecodedBy(QStringConverter::Latin1, bytes);
    if (named == u"windows-1252" || named == u"cp1252") {
        const Text text = Decode(CodePage::Windows1252, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
        return DeclaredAsUtf8(QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())));
    }
    throw HostError(
        QStringLiteral("The file says that its encoding is \"%1\", which can't be read here. Store it as UTF-8 and "
                       "say so in its first line.")
            .arg(named));
}

} // namespace rulemesh
