#pragma once

#include <exception>

#include <QByteArray>
#include <QString>

namespace rulemesh {

/// Why something that the user asked for was not done, in words that say what to do about it.
class HostError : public std::exception {
public:
    explicit HostError(QString text) : text_(std::move(text)), what_(text_.toUtf8()) {}

    [[nodiscard]] const QString& Text() const noexcept { return text_; }
    [[nodiscard]] const char* what() const noexcept override { return what_.constData(); }

private:
    QString text_;
    QByteArray what_;
};

} // namespace rulemesh
