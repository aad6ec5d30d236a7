#pragma once

#include <QDialog>

class QTextBrowser;
class QUrl;

namespace Workbench {

// Shows a page of the guide, and follows its links to others.
class GuideWindow : public QDialog
{
    Q_OBJECT

public:
    explicit GuideWindow(QWidget *parent);

    void showTopic(const QString &topic); // "index" for a page that there is not

private:
    void follow(const QUrl &link);
    void showPart(const QString &anchor); // by its heading; none: stays
    void goBack();

    QTextBrowser *m_text;
    QString m_topic;
    QStringList m_before;
};

// Opens the guide by F1 in any window of the program, at the page of what has the focus; also beside a dialog
// that waits for an answer.
class GuideKey : public QObject
{
    Q_OBJECT

public:
    explicit GuideKey(QObject *parent); // hears the keys of the whole program as long as it lives

    static void openFor(QWidget *widget);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace Workbench
