#pragma once

#include <QStringList>

namespace rulemesh {

/// The files opened last, newest first, each once, no more than Most.
class RecentFiles {
public:
    static constexpr qsizetype Most = 10;

    RecentFiles() = default;
    explicit RecentFiles(const QStringList& paths);

    [[nodiscard]] const QStringList& Paths() const noexcept { return paths_; }

    /// Puts a file in front; its path becomes absolute.
    void Add(const QString& path);
    void Remove(const QString& path);
    void Clear() { paths_.clear(); }

    /// What a menu shows for each path: the file's name, with its folder where two files bear one name.
    [[nodiscard]] QStringList Captions() const;

private:
    QStringList paths_;
};

} // namespace rulemesh
