#pragma once

#include <vector>

#include <QSyntaxHighlighter>

#include "script/script_spans.h"

namespace rulemesh {

/// Colours a script as the scanners see it: statements in force, comments, and nothing else.
class ScriptHighlighter : public QSyntaxHighlighter {
    Q_OBJECT

public:
    ScriptHighlighter(QTextDocument& document, ScannedFor scanned);
    ~ScriptHighlighter() override;

    void SwitchOn(bool on);

protected:
    void highlightBlock(const QString& text) override;

private:
    void Rescan();
    [[nodiscard]] QTextCharFormat FormatOf(ScriptSpan::Kind kind) const;

    ScannedFor scanned_;
    std::vector<ScriptSpan> spans_; // in order, of the text as the document shows it
    bool on_ = false;
};

} // namespace rulemesh
