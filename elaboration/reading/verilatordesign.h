#pragma once

#include "elaboration/reading/netlistreader.h"
#include "elaboration/reading/verilatormodule.h"
#include "elaboration/reading/verilatortypes.h"
#include "elaboration/reading/vhdlplaces.h"
#include "elaboration/reading/vhdlscopes.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QHash>

#include <string>
#include <unordered_set>

namespace QUARRY {

// The XML of one design in memory: its modules by name, types and files. Makes the scopes and declarations of
// the modules below the top one, and adds them to the builder. After load() it is read in small pieces.
class VerilatorDesign
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::VerilatorDesign)

public:
    VerilatorDesign(const ReadOptions &options, NetlistBuilder &builder);
    ~VerilatorDesign();

    // False, with a sentence that begins with "ERROR", when the file is no design.
    bool load(const QString &xmlFile, QString &error);

    // Both, in this order, do a little and give false when there is no more to do. There must be a top
    // module.
    bool readPlaces(); // of VHDL
    bool readModules();

    VerilatorModule *top(); // null when the design has none
    // What the VHDL of the entity declares that the module was made of; null when that is not known.
    const VhdlScope *vhdlScope(const VerilatorModule &module);
    // Where the entity's sources declare all that; null when that is not known.
    const VhdlPlaces *vhdlPlaces(const VerilatorModule &module) const;
    const VhdlPlaceTable &vhdlPlaceTable() const { return m_vhdlPlaces; }
    bool isGenerated(const VerilatorModule &module) const { return fileOf(module.node).maker; }
    const VerilatorTypes &types() const { return *m_types; }

private:
    // A module that waits for those that it instantiates: the outputs of its instances may be tied.
    struct OpenModule
    {
        VerilatorModule *module;
        size_t scope; // the next child: of the body, or from 1 on of a generate scope
        size_t child;
    };
    struct File
    {
        QString name;                        // absolute; empty when a tool wrote it
        QString source;                      // where it can be read
        const VerilogMaker *maker = nullptr; // null: the user
    };

    // The module that an instance names; one that the XML does not hold is a black box.
    VerilatorModule *module(const char *defName);
    void addFiles(const pugi::xml_node &files);
    void addModule(const pugi::xml_node &node);
    void openModule(VerilatorModule &module);
    void closeModule(VerilatorModule &module);
    void findOutputWires(const pugi::xml_node &body);
    void readBody(const pugi::xml_node &body, VerilatorModule &module, VerilatorScope &scope);
    void readVariable(const pugi::xml_node &var, VerilatorModule &module, VerilatorScope &scope);
    void readInterfacePort(const pugi::xml_node &var, VerilatorModule &module) const;
    void readArray(const pugi::xml_node &var, VerilatorModule &module, VerilatorScope &scope);
    static void show(VerilatorNet &net, const NetDecl &decl, VerilatorScope &scope);
    void readGenerate(const pugi::xml_node &begin, VerilatorModule &module, VerilatorScope &scope);
    void readInstance(const pugi::xml_node &instance, VerilatorModule &module, VerilatorScope &scope);
    bool isNet(const pugi::xml_node &var, const VerilatorModule &module);
    bool isLoopVariable(const pugi::xml_node &var, const VerilatorModule &module);
    bool isMadeUp(const pugi::xml_node &var) const;
    NetDecl declaration(const pugi::xml_node &var, const VerilatorType &type, const VerilatorModule &module);
    static void takeWrittenRange(NetDecl &decl);
    const File &fileOf(const pugi::xml_node &node) const;
    QString scopeName(const pugi::xml_node &begin) const;
    QString nameOf(const pugi::xml_node &node) const;
    QString writtenName(const pugi::xml_node &node) const;

    const ReadOptions &m_options;
    NetlistBuilder &m_builder;
    QByteArray m_text; // the document points into it
    pugi::xml_document m_document;
    std::unique_ptr<VerilatorTypes> m_types;
    std::unordered_map<std::string_view, File> m_files; // by id
    std::vector<std::unique_ptr<VerilatorModule>> m_modules;
    std::unordered_map<std::string, VerilatorModule *> m_byName;
    std::unordered_map<const VerilatorModule *, std::unique_ptr<VhdlScope>> m_vhdlScopes;
    VhdlPlaceTable m_vhdlPlaces;
    std::vector<OpenModule> m_open;                       // from the top down
    QSet<QString> m_outputWires;                          // of the module being read
    std::unordered_set<std::string_view> m_loopVariables; // likewise
    bool m_loopVariablesKnown = false;
    QHash<QString, QString> m_typeTexts; // one copy of each text for all declarations
};

} // namespace QUARRY
