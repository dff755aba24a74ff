// The house as its plan has it: which room may know which, what the lowest ones must not know at all, where a class
// stands.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Each room with those that it may include, by their folders; a folder stands for those in it that are not named.
const QMap<QString, QStringList>& plan() {
    static const QStringList words{u"platform/base"_s, u"platform/text"_s};
    static const QStringList widgets{u"platform/widgets/look"_s, u"platform/widgets/frame"_s,
                                     u"platform/widgets/grid"_s, u"platform/widgets/tree"_s,
                                     u"platform/widgets/list"_s, u"platform/widgets/text"_s,
                                     u"platform/typeset"_s,      u"platform/widgets/paper"_s};
    static const QStringList core =
        words + QStringList{u"platform/engine"_s, u"platform/paper"_s, u"platform/system"_s};
    static const QStringList document = core + QStringList{u"core"_s, u"platform/richtext"_s, u"platform/controls"_s};
    static const QMap<QString, QStringList> rooms{
        {u"platform/base"_s, {}},
        {u"platform/text"_s, {u"platform/base"_s}},
        {u"platform/controls"_s, words},
        {u"platform/engine"_s, words},
        {u"platform/richtext"_s, words},
        {u"platform/typeset"_s, words + QStringList{u"platform/richtext"_s}},
        {u"platform/paper"_s, words + QStringList{u"platform/richtext"_s, u"platform/typeset"_s}},
        {u"platform/system"_s, words + QStringList{u"platform/paper"_s}},
        {u"platform/system/ui"_s, words + QStringList{u"platform/paper"_s, u"platform/system"_s}},
        {u"platform/widgets/look"_s, words},
        {u"platform/widgets/frame"_s, words + QStringList{u"platform/controls"_s, u"platform/widgets/look"_s}},
        {u"platform/widgets/grid"_s, words + QStringList{u"platform/controls"_s, u"platform/widgets/look"_s}},
        {u"platform/widgets/tree"_s,
         words + QStringList{u"platform/controls"_s, u"platform/widgets/look"_s, u"platform/widgets/grid"_s}},
        {u"platform/widgets/list"_s,
         words + QStringList{u"platform/controls"_s, u"platform/widgets/look"_s, u"platform/widgets/grid"_s}},
        {u"platform/widgets/text"_s,
         words + QStringList{u"platform/richtext"_s, u"platform/typeset"_s, u"platform/widgets/look"_s}},
        {u"platform/widgets/paper"_s, words + QStringList{u"platform/paper"_s, u"platform/widgets/look"_s}},
        {u"core"_s, core + QStringList{u"platform/controls"_s}},
        {u"document"_s, document},
        {u"search"_s, document},
        {u"dossiers"_s, core + QStringList{u"core"_s, u"platform/controls"_s}},
        {u"print"_s, document + QStringList{u"document"_s, u"dossiers"_s}},
        {u"collection"_s, document},
        {u"outil"_s, document + QStringList{u"document"_s, u"search"_s, u"dossiers"_s, u"collection"_s, u"print"_s,
                                            u"platform/typeset"_s}},
        {u"document/ui"_s, document + widgets + QStringList{u"document"_s}},
        {u"search/ui"_s, document + widgets + QStringList{u"search"_s}},
        {u"print/ui"_s, document + widgets + QStringList{u"document"_s, u"print"_s}},
        {u"dossiers/ui"_s, document + widgets + QStringList{u"dossiers"_s}},
        {u"shell/logique"_s, core + QStringList{u"core"_s}},
        {u"shell"_s,
         document + widgets +
             QStringList{u"document"_s, u"search"_s, u"document/ui"_s, u"search/ui"_s, u"dossiers"_s, u"dossiers/ui"_s,
                         u"print"_s, u"print/ui"_s, u"shell/logique"_s, u"platform/system/ui"_s}}};
    return rooms;
}

/// The rooms that set type and paint it: they know fonts and pictures, and no window.
bool setsType(const QString& room) {
    return room == u"platform/typeset" || room == u"platform/paper";
}

/// The rooms in which nothing can be seen.
bool isLogic(const QString& room) {
    return !room.startsWith(u"platform/widgets") && !room.endsWith(u"/ui") && room != u"shell";
}

struct Source {
    QString path; ///< from the project's folder
    QString text;
};

const std::vector<Source>& sources() {
    static const std::vector<Source> all = [] {
        std::vector<Source> found;
        const QDir project(QStringLiteral(VELM_SOURCE_DIR));
        for (const QString& folder : {u"platform"_s, u"core"_s, u"document"_s, u"search"_s, u"dossiers"_s, u"print"_s,
                                      u"collection"_s, u"outil"_s, u"shell"_s}) {
            QDirIterator walk(project.filePath(folder), {u"*.h"_s, u"*.cpp"_s}, QDir::Files,
                              QDirIterator::Subdirectories);
            while (walk.hasNext()) {
                QFile file(walk.next());
                if (file.open(QIODevice::ReadOnly))
                    found.push_back({project.relativeFilePath(file.fileName()), QString::fromUtf8(file.readAll())});
            }
        }
        std::ranges::sort(found, {}, &Source::path);
        return found;
    }();
    return all;
}

/// The room of a file: the longest folder of the plan that it lies in; empty for none.
QString roomOf(const QString& path) {
    QString folder = path;
    while (folder.contains(u'/')) {
        folder.truncate(folder.lastIndexOf(u'/'));
        if (plan().contains(folder))
            return folder;
    }
    return {};
}

/// What is written between the quotes or the angles of a file's includes.
QStringList includes(const QString& text, bool ours) {
    static const QRegularExpression own(u"^#include \"([^\"]+)\""_s, QRegularExpression::MultilineOption);
    static const QRegularExpression others(u"^#include <([^>]+)>"_s, QRegularExpression::MultilineOption);
    QStringList all;
    for (const auto& match : (ours ? own : others).globalMatch(text))
        all << match.captured(1);
    return all;
}

/// The text without its comments and without what stands between quotes, if `literals` is false; else only that.
QString part(const QString& text, bool literals) {
    static const QRegularExpression piece(uR"re(//[^\n]*|/\*.*?\*/|"((?:[^"\\\n]|\\.)*)"|'(?:[^'\\\n]|\\.)*')re"_s,
                                          QRegularExpression::DotMatchesEverythingOption);
    QString code = text;
    QStringList quoted;
    for (const auto& match : piece.globalMatch(text)) {
        if (match.hasCaptured(1))
            quoted << match.captured(1);
    }
    return literals ? quoted.join(u'\n') : code.remove(piece);
}

/// Those that the headers declare.
const QSet<QString>& classes() {
    static const QSet<QString> all = [] {
        static const QRegularExpression declaration(u"^(?:class|struct) (?:\\w+::)*(\\w+)[^;\\n]*\\{"_s,
                                                    QRegularExpression::MultilineOption);
        QSet<QString> found;
        for (const Source& source : sources()) {
            if (source.path.endsWith(u".h")) {
                for (const auto& match : declaration.globalMatch(source.text))
                    found.insert(match.captured(1));
            }
        }
        return found;
    }();
    return all;
}

} // namespace

TEST(Maison, EverySourceLiesInARoom) {
    ASSERT_GT(sources().size(), 300U);
    for (const Source& source : sources())
        EXPECT_NE(roomOf(source.path), QString()) << source.path.toStdString();
}

TEST(Maison, RoomsKnowOnlyThoseBelowThem) {
    for (const Source& source : sources()) {
        const QString room = roomOf(source.path);
        for (const QString& included : includes(source.text, true)) {
            const QString other = roomOf(included);
            EXPECT_TRUE(other == room || plan().value(room).contains(other))
                << source.path.toStdString() << " includes " << included.toStdString();
        }
    }
}

TEST(Maison, ThePlanHasNoCircle) {
    // Taking away the rooms that know none of those that are left must leave nothing.
    QMap<QString, QStringList> left = plan();
    bool taken = true;
    while (taken) {
        taken = false;
        for (const QString& room : left.keys()) {
            const QStringList known = left.value(room);
            if (std::ranges::none_of(known, [&](const QString& one) { return left.contains(one); }))
                taken = left.remove(room) > 0;
        }
    }
    EXPECT_EQ(left.keys().join(u' '), QString());
}

TEST(Maison, LogicKnowsNoWindows) {
    const QDir headers(QStringLiteral(VELM_QT_HEADERS));
    ASSERT_TRUE(headers.exists(u"QtWidgets/QWidget"_s)) << headers.path().toStdString();
    for (const Source& source : sources()) {
        const QString room = roomOf(source.path);
        if (!isLogic(room))
            continue;
        for (const QString& included : includes(source.text, false)) {
            const bool window = headers.exists(u"QtWidgets/"_s + included) ||
                                headers.exists(u"QtPrintSupport/"_s + included) || included == u"QWindow";
            const bool seen = included.startsWith(u'Q') && !headers.exists(u"QtCore/"_s + included) &&
                              (window || (!setsType(room) && headers.exists(u"QtGui/"_s + included)));
            EXPECT_FALSE(seen) << source.path.toStdString() << " includes " << included.toStdString();
        }
    }
}

TEST(Maison, ThePlatformDoesNotKnowTheProgram) {
    static const QRegularExpression names(u"velm|dossier|donn\u00e9es|arborescence|consommation"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    for (const Source& source : sources()) {
        if (!source.path.startsWith(u"platform/"))
            continue;
        const QString said = part(source.text, true).remove(QRegularExpression(u"platform/\\S+"_s));
        const auto match = names.match(said);
        EXPECT_FALSE(match.hasMatch()) << source.path.toStdString() << ": " << match.captured().toStdString();
    }
}

TEST(Maison, AClassHasOneSource) {
    static const QRegularExpression definition(uR"re(^(?!\s)(?:[^\n(]*[\s&*])?((?:\w+::)+)~?\w+\()re"_s,
                                               QRegularExpression::MultilineOption);
    QMap<QString, QSet<QString>> places;
    for (const Source& source : sources()) {
        if (!source.path.endsWith(u".cpp"))
            continue;
        for (const auto& match : definition.globalMatch(part(source.text, false))) {
            // The outermost class of what is named.
            const QStringList chain = match.captured(1).split(u"::"_s, Qt::SkipEmptyParts);
            const auto name = std::ranges::find_if(chain, [](const QString& one) { return classes().contains(one); });
            if (name != chain.cend())
                places[roomOf(source.path) + u' ' + *name].insert(source.path);
        }
    }
    for (auto place = places.cbegin(); place != places.cend(); ++place) {
        EXPECT_EQ(place->size(), 1) << place.key().section(u' ', 1).toStdString() << " in "
                                    << place->values().join(u", "_s).toStdString();
    }
}

TEST(Maison, SettingsAreKnownByName) {
    static const QRegularExpression row(uR"re(\{u"([^"]+)", u"([^"]+)"\})re"_s);
    QSet<QString> keys;
    for (const Source& source : sources()) {
        if (source.path != u"core/tablereglages.h")
            continue;
        for (const auto& match : row.globalMatch(source.text))
            keys << match.captured(1) << match.captured(2).remove(u'#');
    }
    ASSERT_GT(keys.size(), 100);
    for (const Source& source : sources()) {
        // The platform knows no settings: a word of the engine's may be a key as well.
        if (source.path == u"core/tablereglages.h" || source.path.startsWith(u"platform/"))
            continue;
        QStringList literals = part(source.text, true).split(u'\n');
        // What the keys of the dossiers' printing end in is a key as well.
        if (source.path == u"core/sortesreglages.h")
            EXPECT_TRUE(literals.removeOne(u"DOSSIER"_s)) << "needs no exception any more";
        for (const QString& literal : literals)
            EXPECT_FALSE(keys.contains(literal)) << source.path.toStdString() << ": " << literal.toStdString();
    }
}

TEST(Maison, TextsAreKnownByName) {
    static const QRegularExpression number(
        uR"re((?:(?<![.\w])texte_?|\blireressource)\(\s*(?:[^()]*[?:+]\s*)?[1-9]|static_cast<Texte>|\bTexte\s*[({]\s*\w)re"_s);
    for (const Source& source : sources()) {
        if (source.path == u"core/texte.h" || source.path.startsWith(u"platform/"))
            continue;
        const auto match = number.match(part(source.text, false));
        EXPECT_FALSE(match.hasMatch()) << source.path.toStdString() << ": " << match.captured().toStdString();
    }
}

TEST(Maison, SignsStandInTheTexts) {
    // What a language wants before its signs, and which it has, is in its file.
    static const QRegularExpression sign(
        uR"re(\bu"(?:[ \x{A0}]+[?!:;]|[?!:;][ \x{A0}]+|\.\.\.)(?: |\\r|\\n)*"|\+ u'[?!;]')re"_s);
    ASSERT_TRUE(sign.isValid()) << sign.errorString().toStdString();
    // Forms that are fixed: the steps of the start, the lines of a search by words, a tool tip; where a title repeats
    // what is above it; documents made up, and files of the desktop.
    static const QStringList fixed{
        u"shell/logique/seance.cpp"_s,    u"search/recherchedico.cpp"_s,  u"document/ui/blocrecherche.cpp"_s,
        u"document/ui/barretextes.cpp"_s, u"document/arborescence.cpp"_s, u"collection/synthese.cpp"_s,
        u"core/extensions.cpp"_s};
    for (const Source& source : sources()) {
        if (source.path.startsWith(u"platform/") || fixed.contains(source.path))
            continue;
        const auto match = sign.match(source.text);
        EXPECT_FALSE(match.hasMatch()) << source.path.toStdString() << ": " << match.captured().toStdString();
    }
}

TEST(Maison, EachNameOfATextIsSaid) {
    static const QRegularExpression name(u"^ +(\\w+) = \\d+,?$"_s, QRegularExpression::MultilineOption);
    static const QRegularExpression use(u"\\bTexte::(\\w+)"_s);
    QSet<QString> names;
    QSet<QString> said;
    for (const Source& source : sources()) {
        if (source.path == u"core/texte.h") {
            for (const auto& match : name.globalMatch(source.text))
                names.insert(match.captured(1));
        }
        for (const auto& match : use.globalMatch(part(source.text, false)))
            said.insert(match.captured(1));
    }
    ASSERT_GT(names.size(), 300);
    EXPECT_EQ((names - said).values().join(u' '), QString());
}

TEST(Maison, EachSettingIsUsed) {
    static const QRegularExpression row(u"^inline constexpr [\\w<>]+ (\\w+)"_s, QRegularExpression::MultilineOption);
    static const QRegularExpression use(u"\\breglage::(\\w+)"_s);
    QSet<QString> names;
    QSet<QString> used;
    for (const Source& source : sources()) {
        if (source.path == u"core/tablereglages.h") {
            for (const auto& match : row.globalMatch(source.text))
                names.insert(match.captured(1));
        }
        for (const auto& match : use.globalMatch(part(source.text, false)))
            used.insert(match.captured(1));
    }
    names.remove(u"nombremaxoutils"_s); // the bound of one of them
    ASSERT_GT(names.size(), 100);
    EXPECT_EQ((names - used).values().join(u' '), QString());
}

TEST(Maison, ABodyOfOneLineHasNoBraces) {
    static const QRegularExpression braced(
        uR"re(^( *)(?:if|for|while) \([^\n]*\) \{\n +(?!if|for|while|switch|do\b|//)[^\n;]*;\n\1\}$)re"_s,
        QRegularExpression::MultilineOption);
    for (const Source& source : sources()) {
        const auto match = braced.match(source.text);
        EXPECT_FALSE(match.hasMatch()) << source.path.toStdString() << ": " << match.captured().toStdString();
    }
}

TEST(Maison, TextsOfSourcesHaveOneSuffix) {
    // Headers open no namespace of literals; what comes from the build is no literal.
    static const QRegularExpression macro(u"QStringLiteral\\(\\s*\""_s);
    for (const Source& source : sources()) {
        if (source.path.endsWith(u".cpp")) {
            EXPECT_FALSE(source.text.contains(macro)) << source.path.toStdString();
        }
    }
}

} // namespace velm
