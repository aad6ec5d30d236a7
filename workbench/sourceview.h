#pragma once

#include "host/iview.h"

class QLabel;

namespace KSyntaxHighlighting {
class SyntaxHighlighter;
}

namespace Workbench {

class ProjectWatch;
class SourceEdit;
struct SourcePlace;

// A source in a tab, to read: coloured, with line numbers, and a text can be found in it. Follows the file.
class SourceView : public Core::IView
{
    Q_OBJECT

public:
    explicit SourceView(const QString &path);

    static void open(const SourcePlace &place); // in its tab, or a new one

    const QString &path() const { return m_path; }
    SourceEdit *edit() const { return m_edit; }

protected:
    void changeEvent(QEvent *event) override;

private:
    void load();
    void chooseColours();

    const QString m_path;
    QLabel *m_notice;
    SourceEdit *m_edit;
    KSyntaxHighlighting::SyntaxHighlighter *m_colours; // the document's
    ProjectWatch *m_watch;
};

} // namespace Workbench
