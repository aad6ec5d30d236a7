#include "insertion/viewerfiles.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <cmath>

#include "host/regularfile.h"
#include "insertion/waveform.h"
#include "model/netlist/rtlnetlist.h"

using JEX::SignalItem;
using RTLJEX::CapturedWindow;

namespace Insertion {
namespace {

// Also how a file is known to be ours; GTKWave itself writes another first line.
const char *const madeHere = " Made by jex for GTKWave\n";
const int namedMarkers = 26;

// Of the lines of a save file that begin with "@": how the traces behind it are shown.
enum Look {
    Binary = 0x28,
    Hexadecimal = 0x22,
    Decimal = 0x24,
    Comment = 0x200,
    Translated = 0x2000,
    GroupBegin = 0x800000,
    GroupEnd = 0x1000000
};

// GTKWave takes what is in braces up to the end of the line as the name to be shown.
QByteArray shownAs(const QString &name)
{
    QString plain = name.simplified();
    plain.remove('{').remove('}');
    return plain.isEmpty() ? QByteArray() : "+{" + plain.toUtf8() + "} ";
}

QByteArray look(int flags)
{
    return '@' + QByteArray::number(flags, 16) + '\n';
}

QByteArray heading(const QString &name, int flags)
{
    return look(Comment | flags) + '-' + name.toUtf8() + '\n';
}

// The labels of the row's enumeration; none unless its bits are the whole net in declared order.
QStringList labelsOf(const SignalItem &row, const QUARRY::RtlNetlist &netlist)
{
    if (row.isSingle()) {
        const QUARRY::RtlNet *net = netlist.findNet(row.name);
        return net ? net->declaration().enumLabels : QStringList();
    }
    const QUARRY::RtlNetBus *bus = row.isGroup() ? nullptr : netlist.findBus(row.name);
    if (!bus || bus->members.size() != row.members.size())
        return {};
    const bool isAsDeclared = bus->members.first()->fullPathName() == row.members.first().name &&
                              bus->members.last()->fullPathName() == row.members.last().name;
    return isAsDeclared ? bus->declaration().enumLabels : QStringList();
}

// A line for each label, behind the bits that stand for it; empty when a value is no number.
QByteArray labelText(const QStringList &labels, int width)
{
    QByteArray text;
    for (const QString &label : labels) {
        bool isNumber = false;
        const qint64 value = label.section('=', -1).toLongLong(&isNumber);
        if (!isNumber || width > 63)
            return QByteArray();
        const quint64 bits = quint64(value) & ((quint64(1) << width) - 1);
        text += QByteArray::number(bits, 2).rightJustified(width, '0') + ' ' +
                label.section('=', 0, -2).simplified().toUtf8() + '\n';
    }
    return text;
}

class Viewer
{
public:
    Viewer(const QString &base, const QUARRY::RtlNetlist &netlist) : m_base(base), m_netlist(netlist) {}

    void addCore(const Analyzer::Core &core, const RTLJEX::CapturedCore &captured)
    {
        const QString name = "Core " + QString::number(core.core.number);
        const QByteArray scope = "core_" + QByteArray::number(core.core.number);
        m_traces += heading(name, GroupBegin) + look(Binary) + scope + ".trigger\n";
        if (captured.windows.size() > 1)
            m_traces += look(Decimal) + scope + ".window[15:0]\n";
        const QList<QByteArray> names = rowNames(core);
        for (int i = 0; i < names.size(); ++i)
            addRow(core.core.enabledRows->at(i), names.at(i));
        m_traces += heading(name, GroupEnd);
        noteTriggers(captured);
    }

    QMap<QString, QByteArray> files() const
    {
        QMap<QString, QByteArray> files = m_labels;
        // Two hundred pixels are 2^-zoom units of time: some six hundred for the first window.
        const double zoom = -std::log2(qMax(1, m_shownTime) / 3.0);
        QByteArray text = QByteArray("[*]") + madeHere + "[timestart] 0\n[size] 1200 700\n[pos] -1 -1\n*" +
                          QByteArray::number(zoom, 'f', 6);
        for (int i = -1; i < namedMarkers; ++i)
            text += ' ' + QByteArray::number(m_triggers.value(qMax(i, 0), -1));
        files.insert(m_base + ".gtkw", text + '\n' + m_traces);
        return files;
    }

private:
    void addRow(const SignalItem &row, const QByteArray &name)
    {
        const QByteArray trace = shownAs(row.alias) + name + '\n';
        if (row.isGroup() && row.width() > 1) {
            m_traces += look(Binary | GroupBegin) + trace + look(Binary);
            for (int i = 0; i < row.members.size(); ++i) {
                const SignalItem &bit = row.members.at(i);
                m_traces += shownAs(bit.alias.isEmpty() ? bit.name.section('/', -1) : bit.alias) + '(' +
                            QByteArray::number(i) + ')' + name + '\n';
            }
            m_traces +=
                heading(row.alias.isEmpty() ? row.name.simplified() : row.alias.simplified(), GroupEnd);
            return;
        }
        const QByteArray labels = labelText(labelsOf(row, m_netlist), row.width());
        if (!labels.isEmpty())
            m_traces += look(Binary | Translated) + "^1 " + labelFile(labels).toUtf8() + '\n' + trace;
        else
            m_traces += look(row.width() > 1 ? Hexadecimal : Binary) + trace;
    }

    // One file for all rows of a type.
    QString labelFile(const QByteArray &labels)
    {
        const QByteArray text = QByteArray("#") + madeHere + labels;
        QString name = m_labels.key(text);
        if (name.isEmpty()) {
            name = m_base + ".enum" + QString::number(m_labels.size() + 1) + ".txt";
            m_labels.insert(name, text);
        }
        return name;
    }

    void noteTriggers(const RTLJEX::CapturedCore &captured)
    {
        int sample = 0;
        for (const CapturedWindow &window : captured.windows) {
            if (window.trigger >= 0)
                m_triggers << (sample + window.trigger) * unitsPerSample;
            sample += window.samples.size();
            if (m_shownTime == 0)
                m_shownTime = sample * unitsPerSample;
        }
    }

    const QString m_base;
    const QUARRY::RtlNetlist &m_netlist;
    QByteArray m_traces;
    QMap<QString, QByteArray> m_labels; // by name of their file
    QList<int> m_triggers;              // times
    int m_shownTime = 0;
};

} // namespace

QString viewerFile(const QString &waveform)
{
    const QFileInfo info(waveform);
    return info.dir().filePath(info.completeBaseName() + ".gtkw");
}

QMap<QString, QByteArray> viewerFiles(const QString &waveform, const Analyzer &analyzer,
                                      const QList<RTLJEX::CapturedCore> &captured,
                                      const QUARRY::RtlNetlist &netlist)
{
    // The names stand in lines of the save file.
    static const QRegularExpression unusable("[\\x00-\\x1f\\x7f]");
    const QString base = QFileInfo(waveform).completeBaseName();
    if (base.isEmpty() || base.contains(unusable) || waveform == base + ".gtkw")
        return {};
    Viewer viewer(base, netlist);
    for (int i = 0; i < analyzer.cores().size(); ++i)
        viewer.addCore(analyzer.cores().at(i), captured.value(i));
    return viewer.files();
}

bool isOurViewerFile(const QString &path)
{
    QByteArray bytes;
    QString reason;
    if (!QFileInfo::exists(path) && !QFileInfo(path).isSymLink())
        return true;
    return QUtil::readRegularFile(path, QUtil::MiB, &bytes, &reason) &&
           bytes.mid(bytes.indexOf(' ')).startsWith(madeHere);
}

} // namespace Insertion
