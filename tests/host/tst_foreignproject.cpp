#include "host/designmanager.h"
#include "host/foreignproject.h"
#include "tests/host/projecttext.h"
#include "tests/support/files.h"
#include "tests/support/tablerow.h"

using Core::ProjectData;

class ForeignProjectTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The text, and what is made of it: sources with type and library, notes, or the fault.
    void edam_data()
    {
        textColumns("text", "expected");
        row("as FuseSoC writes it", R"(
dependencies: {}
files:
- {core: '::a:1.0', file_type: verilogSource-2005, is_include_file: true, name: src/a/inc/defs.vh}
- {file_type: verilogSource, include_path: src/b, is_include_file: 'True', name: src/b/x/deep.vh}
- core: ::a:1.0
  file_type: verilogSource-2005
  name: src/a/top.v
- {file_type: systemVerilogSource, name: src/a/pkg.txt}
- {file_type: vhdlSource-2008, logical_name: lib_a, name: ../b.vhd}
- {file_type: xdc, name: pins.xdc}
- {file_type: xdc, name: more.xdc}
- {file_type: user, name: readme}
hooks: {}
name: a_1.0
parameters:
  WIDTH: {datatype: int, default: 8, description: Of the bus, paramtype: vlogparam}
  FILE: {datatype: str, default: boot.hex, paramtype: vlogparam}
  name: {datatype: str, default: x y, paramtype: generic}
  fast: {datatype: bool, default: true, paramtype: generic}
  SLOW: {datatype: bool, default: false, paramtype: vlogdefine}
  OWN: {datatype: int, paramtype: vlogparam}
  vcd: {datatype: bool, default: true, paramtype: plusarg}
tool_options:
  verilator: {mode: lint-only}
toplevel: top
version: 0.2.1
)",
            "src/a/top.v:2\nsrc/a/pkg.txt:3\n%1b.vhd:4@lib_a\nI:src/a/inc\nI:src/b\nD:SLOW=0\n"
            "G:WIDTH=8\nG:FILE=\"boot.hex\"\nG:name=x y\nG:fast=true\ntop:top\n"
            "Not understood, and left out: \"hooks\", \"tool_options\".\n"
            "Left out of the files of type user: \"readme\".\n"
            "Left out of the files of type xdc: \"pins.xdc\", \"more.xdc\".\n"
            "Left out of the parameters of type plusarg: \"vcd\".");
        row("types of their own",
            "files: [a.v, /b.vhd, {name: a.v}, {name: c.v, define: {X: 1}}]\ntoplevel: [t, u]",
            "a.v:2\n/b.vhd:4\nc.v:2\ntop:t\nA project here has one top module, \"t\"; left out: \"u\".\n"
            "The macros of the file \"c.v\" alone are left out.");
        row("JSON", R"({"files": [{"name": "a.v"}], "toplevel": "t"})", "a.v:2\ntop:t");
        row("empty", "", "line 1: it must hold keys and values.");
        row("no files", "name: a\n", "line 1: \"files\" must be a list.");
        row("files no list", "name: a\nfiles: {}\n", "line 2: \"files\" must be a list.");
        row("nameless", "files:\n- {file_type: user}\n", "line 2: a file has no \"name\".");
        row("odd name", "files:\n- name: [a]\n", "line 2: \"name\" must be a text.");
        row("odd parameters", "files: []\nparameters: [a]\n",
            "line 2: \"parameters\" must hold keys and values.");
        row("twice", "files: []\nname: a\nname: b\n", "line 3: \"name\" stands twice.");
        row("alias", "files: &a []\nname: *a\n", "line 2: aliases are not read here.");
        row("two documents", "files: []\n---\nfiles: []\n", "line 3: there is more than one document.");
        row("NUL", "files: [\"a\\0b\"]\n", "line 1: it holds a NUL character.");
        row("no YAML", "files: [\n- ]\n", "");
        row("deep", QByteArray(100000, '['), "line 1: it is nested more than 16 deep.");
    }
    void edam() { check(Core::projectFromEdam); }

    void vhdlLs_data()
    {
        textColumns("text", "expected");
        row("libraries", R"(
standard = "2008"
[libraries]
top.files = ["src/top.vhd", '$JEX_F/*.vhd', "nowhere.vhd"]
util.files = ["src/**/*_pkg.vhd", "src/[ab]?.vhdl", 'src/*/none*.vhd']
util.exclude = ["src/old/*"]
util.is_third_party = true
util.colour = 1
again.files = ["src/top.vhd", "$JEX_NOT_SET/a.vhd"]
[lint]
unused = 'error'
)",
            "src/top.vhd:4@again\nsrc/sub/deep/d.vhd:4@top\nnowhere.vhd:4@top\nsrc/a_pkg.vhd:4@util\n"
            "src/sub/b_pkg.vhd:4@util\nsrc/a1.vhdl:4@util\n"
            "Left out \"$JEX_NOT_SET/a.vhd\": the environment variable \"JEX_NOT_SET\" is not set.\n"
            "\"src/top.vhd\" is of another library, too: here it is of one.\n"
            "There is no file \"src/*/none*.vhd\".\n"
            "Not understood, and left out: \"util.colour\", \"lint\", \"standard\".");
        row("empty", "", "line 1: it has no table \"libraries\".");
        row("no table", "[libraries]\na = 1\n", "line 2: the library \"a\" must be a table.");
        row("no list", "[libraries]\na.files = 'x'\n",
            "line 2: what files the library \"a\" has must be a list.");
        row("no text", "[libraries]\na.files = ['x',\n 1]\n",
            "line 3: the files of library \"a\" must be texts.");
        row("NUL", "[libraries]\na.files = [\"x\\u0000y\"]\n",
            "line 2: a file must have a name, without NUL characters.");
        row("no TOML", "[libraries\n", "");
        row("letters", "[libraries]\n\"\u00fc\".files = ['\u00e4%41.vhd'] # \u03a6\n",
            "\u00e4%41.vhd:4@\u00fc");
        row("letters outside", "es = \u03a6", "");
        row("no header", "[|a]\nb.c = 1\n", "it is no TOML.");
        row("deep", "a" + QByteArray(".a").repeated(100000) + " = 1\n", "its keys are nested too deep.");
        row("deep lists", "a = " + QByteArray(100000, '['), "");
    }
    void vhdlLs() { check(Core::projectFromVhdlLs); }

    // It is read only: saving makes a project of our own, elsewhere.
    void becomesAProject()
    {
        const Folder dir;
        const QByteArray text = "files: [{name: rtl/a.v}, {name: inc/h.vh, is_include_file: true}]\n"
                                "name: demo\nextra: 1\n";
        const QString path = dir.write("build/demo.eda.yml", text);
        Core::Project project;
        QString error;
        QVERIFY2(project.load(path, &error), qPrintable(error));
        QCOMPARE(project.filePath() + '|' + project.foreignPath() + '|' + project.name(),
                 '|' + path + "|demo");
        QCOMPARE(project.workingDir(), dir.path("build"));
        QCOMPARE(project.notes().join('\n'), QString("Not understood, and left out: \"extra\"."));
        QVERIFY(!project.isModified());
        QVERIFY(!project.save(&error));
        QVERIFY(QDir().mkpath(dir.path("own")));
        QVERIFY2(project.saveAs(dir.path("own/demo.jexprj"), &error), qPrintable(error));
        QCOMPARE(dir.read("build/demo.eda.yml"), text);
        Core::Project own;
        QVERIFY2(own.load(dir.path("own/demo.jexprj"), &error), qPrintable(error));
        QCOMPARE((projectWords(own.data(), dir.path()) + own.notes()).join('\n'),
                 QString("build/rtl/a.v:2\nI:../build/inc"));
        const QString damaged = dir.write("vhdl_ls.toml", "[libraries]\na = 1");
        QVERIFY(!own.load(damaged, &error));
        QCOMPARE(error,
                 "Can not read the project " + damaged + ": line 2: the library \"a\" must be a table.");
        QCOMPARE(own.filePath(), dir.path("own/demo.jexprj"));
    }

private:
    template <typename Read>
    void check(Read read)
    {
        auto [text, expected] = textCells("text", "expected");
        const Folder dir;
        for (const char *file : {"src/top.vhd", "src/a_pkg.vhd", "src/sub/b_pkg.vhd", "src/sub/deep/d.vhd",
                                 "src/old/c_pkg.vhd", "src/a1.vhdl", "src/c1.vhdl", "src/.git/x_pkg.vhd"})
            dir.write(file, "");
        QVERIFY(QFile::link(dir.path("src"), dir.path("src/sub/loop")));
        qputenv("JEX_F", dir.path("src/sub/deep").toLocal8Bit());
        ProjectData data;
        QStringList notes;
        QString fault;
        const bool isRead = read(text.toUtf8(), dir.path(), data, notes, fault);
        const QString above = QFileInfo(dir.path()).path() + '/';
        QCOMPARE(isRead, fault.isEmpty());
        if (expected.isEmpty())
            QVERIFY2(fault.startsWith("line ") && fault.endsWith('.'), qPrintable(fault));
        else
            QCOMPARE(isRead ? (projectWords(data, dir.path()) + notes).join('\n').remove(dir.path() + '/')
                            : fault,
                     expected.replace("%1", above));
    }
};

QTEST_GUILESS_MAIN(ForeignProjectTest)
#include "tst_foreignproject.moc"
