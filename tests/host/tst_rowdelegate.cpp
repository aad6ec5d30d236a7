#include <QListWidget>
#include <cmath>

#include "host/rowdelegate.h"
#include "tests/support/tablerow.h"

using namespace QUtil;

namespace {

QPalette palette(bool dark)
{
    return dark ? QPalette(QColor(49, 54, 59), QColor(49, 54, 59)) : QPalette(QColor(240, 240, 240));
}

double luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

// As the guidelines for accessible contents define it.
double contrast(const QColor &a, const QColor &b)
{
    const double first = luminance(a), second = luminance(b);
    return (qMax(first, second) + 0.05) / (qMin(first, second) + 0.05);
}

// The best that the eye gets: of any pixel of the row against the first one.
double contrastOf(const QImage &row)
{
    double best = 1;
    for (int y = 0; y < row.height(); ++y) {
        for (int x = 0; x < row.width(); ++x)
            best = qMax(best, contrast(row.pixelColor(x, y), row.pixelColor(row.width() - 1, 0)));
    }
    return best;
}

} // namespace

class RowDelegateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsCanBeRead_data()
    {
        columns<bool, QColor, double>("dark", "colour", "least");
        for (const bool dark : {false, true}) {
            const QByteArray name = dark ? "dark " : "light ";
            row(name + "black", dark, QColor(Qt::black), 7.0);
            row(name + "red", dark, QColor(Qt::red), 4.5);
        }
    }
    void rowsCanBeRead()
    {
        auto [dark, colour, least] = cells<bool, QColor, double>("dark", "colour", "least");
        const QImage row = picture(dark, colour, true);
        QVERIFY2(contrastOf(row) >= least, qPrintable(QString::number(contrastOf(row))));
    }

    // With no text at all there is something to see before each row that is not as usual, and no two of them
    // look alike in one colour.
    void marksTellTheRowsApart()
    {
        const QImage usual = picture(false, Qt::black, true, " ").convertToFormat(QImage::Format_Mono);
        const QImage idle = picture(false, Qt::gray, true, " ").convertToFormat(QImage::Format_Mono);
        const QImage unusable = picture(false, Qt::gray, false, " ").convertToFormat(QImage::Format_Mono);
        const QImage faulty = picture(false, Qt::red, true, " ").convertToFormat(QImage::Format_Mono);
        const QList<QImage> all = {usual, idle, unusable, faulty};
        for (int i = 0; i < all.size(); ++i) {
            for (int k = 0; k < i; ++k)
                QVERIFY2(all.at(i) != all.at(k), qPrintable(QString("%1 and %2").arg(i).arg(k)));
        }
    }

    // Grey means the same as what is disabled, in each palette.
    void greyIsThePalettesOwn()
    {
        for (const bool dark : {false, true}) {
            const QColor disabled = palette(dark).color(QPalette::Disabled, QPalette::Text);
            bool isSeen = false;
            const QImage row = picture(dark, Qt::gray, true, "\u2588\u2588\u2588");
            for (int x = 0; x < row.width(); ++x)
                isSeen = isSeen || row.pixelColor(x, row.height() / 2) == disabled;
            QVERIFY(isSeen);
        }
    }

private:
    static QImage picture(bool dark, const QColor &colour, bool selectable,
                          const QString &text = "top/count[3]")
    {
        QListWidget list;
        list.setPalette(palette(dark));
        list.setFrameStyle(QFrame::NoFrame);
        useRowDelegate(&list);
        auto *row = new QListWidgetItem(text, &list);
        row->setForeground(colour);
        if (!selectable)
            row->setFlags(row->flags() & ~(Qt::ItemIsSelectable | Qt::ItemIsEnabled));
        list.resize(200, 60);
        return list.grab(list.visualItemRect(row)).toImage();
    }
};

QTEST_MAIN(RowDelegateTest)
#include "tst_rowdelegate.moc"
