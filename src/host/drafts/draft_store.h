#pragma once

#include <memory>
#include <vector>

#include <QByteArray>
#include <QDateTime>
#include <QLockFile>
#include <QString>

#include "host/files/object_file.h"

namespace rulemesh {

/// What a draft is of: the file it will be saved to ("" for an object that has none yet) and when it was written.
struct DraftOrigin {
    QString File;
    QString Table; // the root element's name
    QDateTime Written;
};

/// The draft of one open object: what the user would lose if the program ended now. It belongs to whoever holds this
/// handle; a program that ends without Discard leaves it behind as one to recover.
class Draft {
public:
    ~Draft();
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    /// Replaces the draft as one act. Raises HostError when that can't be done.
    void Write(const QString& file, const ObjectText& text);

    /// Takes the draft away: the object was saved, or its user wants none of it. Where the file can't be removed it is
    /// emptied, so that nobody is offered it; raises HostError when that can't be done either.
    void Discard();

    /// The file that the draft is written to.
    [[nodiscard]] const QString& Path() const noexcept { return path_; }

private:
    friend class DraftStore;
    Draft(QString path, std::unique_ptr<QLockFile> lock);

    QString path_;
    std::unique_ptr<QLockFile> lock_;
};

/// The folder of the drafts of all programs of one user. Each open object has a draft of its own there, named by the
/// path of its file and guarded by a lock file, so that programs side by side, even on one file, keep to their own.
class DraftStore {
public:
    /// Makes the folder at the first draft, for the user alone.
    explicit DraftStore(QString folder);

    /// The folder in the user's data.
    [[nodiscard]] static QString DefaultFolder();

    /// Removes what killed programs left behind besides their drafts.
    void Sweep() const;

    /// A draft for a file that is being opened ("" for a new object), never one that holds something already. Raises
    /// HostError when the folder can't be written.
    [[nodiscard]] std::unique_ptr<Draft> Begin(const QString& file);

    /// A draft that a program left behind when it ended without saving.
    struct Orphan {
        QString Path;
        DraftOrigin Origin;
    };

    /// The drafts left behind, newest first. Those that a running program holds are not among them.
    [[nodiscard]] std::vector<Orphan> Orphans() const;
    [[nodiscard]] std::vector<Orphan> OrphansOf(const QString& file) const;

    /// A draft left behind, with the text that it holds.
    struct Recovered {
        std::unique_ptr<Draft> Handle;
        DraftOrigin Origin;
        ObjectText Text;
    };

    /// Takes over a draft that was left behind; without a handle when another program was quicker. Raises HostError
    /// for a draft that can't be read.
    [[nodiscard]] Recovered TakeOver(const Orphan& orphan) const;

private:
    QString folder_;
};

} // namespace rulemesh
