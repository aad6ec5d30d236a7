#pragma once

#include "elaboration/reading/vhdlplaces.h"
#include "elaboration/reading/vhdlwords.h"

namespace QUARRY {

// Reads what a VHDL file declares, and where, into the table: the ports of entities, the signals and labels
// of architectures with their blocks and generate statements, and the names in types. Only the words that
// open, separate and close such things are told apart; whatever the rest is, reading ends.
class VhdlDeclarations
{
public:
    VhdlDeclarations(VhdlPlaceTable &table, const QString &library, const QString &file,
                     const QByteArray &text);
    void read();

private:
    struct Region
    {
        VhdlPlaces *places = nullptr;        // null: of a subprogram
        QHash<QString, VhdlTarget> bindings; // by label, "all of" the component, or "others of" it
    };
    struct Subtype
    {
        QString mark; // "work.p.byte"
        QString text; // "byte(7 downto 0)"
    };

    bool is(const char *word, int ahead = 0) const { return m_words.at(m_at + ahead).is(word); }
    bool isOver() const { return m_at >= m_words.count(); }
    bool isTooDeep() const;
    bool isDeclaration() const;
    bool isInstance() const;
    QString key(int at) const;
    void skipParentheses();
    void skipStatement(); // behind its semicolon
    void skipTo(const char *word);
    void skipPast(const char *kind); // behind "end kind ...;"
    void skipBody();

    void readEntity();
    void readArchitecture();
    void readPackage();
    void readHeader(VhdlPlaces &places);
    void readPorts(VhdlPlaces &places);
    QList<int> readNames();
    void readDeclarations(Region &region);
    void readSignals(Region &region);
    void readType(Region &region);
    void readRecord();
    void readSubtype(Region &region);
    void readSubprogram();
    void readBinding(Region &region);
    VhdlTarget readTarget();
    QStringList readSelected();
    Subtype readIndication();
    QString readRange();
    QString readDirection();
    QString readNumber();
    void readStatements(Region &region);
    void readStatement(Region &region);
    void readInstance(Region &region, int label);
    void readBlock(Region &region, int label);
    void readGenerate(Region &region, int label);
    void readAlternative(VhdlPlaces &places);
    VhdlPlaces &inner(Region &region, int label);
    void declare(VhdlPlaces &places, const QList<int> &names, const Subtype &subtype);
    void spell(Region &region, int name);

    VhdlPlaceTable &m_table;
    const QString m_library, m_file;
    const VhdlWords m_words;
    std::shared_ptr<QSet<QString>> m_packages;
    int m_at = 0;
    int m_depth = 0;
};

// The type of a declaration without the range that its text does not say, "unsigned(downto)", and with it.
QString knownType(const QString &type);
QString knownType(const QString &type, int left, int right);

} // namespace QUARRY
