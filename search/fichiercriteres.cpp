#include "search/fichiercriteres.h"

#include "platform/text/ansilines.h"
#include "platform/text/number.h"
#include "search/remplacecodes.h"

#include <algorithm>
#include <limits>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

class Ecrivain : public ansi::LineWriter {
public:
    Ecrivain() : LineWriter([](QStringView texte) { return ansi::encode(texte); }) {}
    void texte(QStringView ligne) { line(ligne); }
    void nombre(qint64 valeur) { line(QString::number(valeur)); }
    void coche(bool valeur) { nombre(valeur ? 1 : 0); }
};

class Lecteur : public ansi::LineReader {
public:
    using LineReader::LineReader;

    QString texte() { return line(); }
    int nombre() {
        constexpr qint64 leplus = std::numeric_limits<int>::max();
        return static_cast<int>(std::clamp(roundHalfEven(val(line())), -leplus, leplus));
    }
    bool coche() { return nombre() != 0; }
};

QString boutonsentexte(const std::array<bool, nombredecollections>& boutons) {
    QString texte;
    for (const bool enfonce : boutons)
        texte += enfonce ? u'X' : u' ';
    return texte;
}

void litonglets(Lecteur& lecteur, FichierCriteres& f) {
    Criteres& c = f.criteres;
    f.ongletrecherche = lecteur.nombre();
    f.Textedico = lecteur.texte();
    f.checkandordico = lecteur.nombre();
    f.Combonombredico = lecteur.nombre();
    f.texterapide = lecteur.texte();
    f.combonombre = lecteur.nombre();
    f.combomotcle = lecteur.texte();
    for (bool& place : c.emplacement)
        place = lecteur.coche();
    c.texterech[0] = lecteur.texte();
    c.motentier[0] = lecteur.coche();
    c.respectminmaj[0] = lecteur.coche();
    f.conjonction = lecteur.texte();
    c.texterech[1] = lecteur.texte();
    c.motentier[1] = lecteur.coche();
    c.respectminmaj[1] = lecteur.coche();
    f.combotype = lecteur.texte();
    c.textejour = lecteur.texte();
    c.textemois = lecteur.texte();
    c.texteannee = lecteur.texte();
    const QString boutons = lecteur.texte();
    for (std::size_t i = 0; i < f.boutons.size(); ++i)
        f.boutons[i] = boutons.mid(static_cast<qsizetype>(i), 1) == u"X";
}

void litlignes(Lecteur& lecteur, FichierCriteres& f) {
    const int rows = lecteur.nombre();
    for (int& champ : f.coldata)
        champ = lecteur.nombre();
    for (int rang = 1; rang < rows; ++rang) {
        FichierCriteres::Ligne ligne;
        for (QString& cellule : ligne.cellules)
            cellule = lecteur.texte();
        // A row of which the file lacks the end is none.
        if (lecteur.atEnd())
            return;
        ligne.cle = lecteur.texte();
        f.lignes.push_back(std::move(ligne));
    }
}

} // namespace

QString motsdelarecherche(const FichierCriteres& fichier) {
    const auto& deux = fichier.criteres.texterech;
    const std::array onglets{fichier.texterapide.simplified(), (deux[0] + u' ' + deux[1]).simplified(),
                             fichier.Textedico.simplified()};
    const auto dessus = static_cast<std::size_t>(fichier.ongletrecherche);
    if (dessus < onglets.size() && !onglets.at(dessus).isEmpty())
        return onglets.at(dessus);
    const auto rempli = std::ranges::find_if(onglets, [](const QString& mots) { return !mots.isEmpty(); });
    return rempli == onglets.end() ? QString() : *rempli;
}

QByteArray ecritcriteres(const FichierCriteres& f) {
    const Criteres& c = f.criteres;
    Ecrivain e;
    e.texte(FichierCriteres::entete);
    e.nombre(f.ongletrecherche);
    e.texte(f.Textedico);
    e.nombre(f.checkandordico);
    e.nombre(f.Combonombredico);
    e.texte(f.texterapide);
    e.nombre(f.combonombre);
    e.texte(f.combomotcle);
    for (const bool place : c.emplacement)
        e.coche(place);
    e.texte(c.texterech[0]);
    e.coche(c.motentier[0]);
    e.coche(c.respectminmaj[0]);
    e.texte(f.conjonction);
    e.texte(c.texterech[1]);
    e.coche(c.motentier[1]);
    e.coche(c.respectminmaj[1]);
    e.texte(f.combotype);
    e.texte(c.textejour);
    e.texte(c.textemois);
    e.texte(c.texteannee);
    e.texte(boutonsentexte(f.boutons));
    e.nombre(static_cast<qint64>(f.lignes.size()) + 1);
    for (const int champ : f.coldata)
        e.nombre(champ);
    for (const FichierCriteres::Ligne& ligne : f.lignes) {
        for (const QString& cellule : ligne.cellules)
            e.texte(cellule);
        e.texte(ligne.cle);
    }
    return e.take();
}

std::optional<FichierCriteres> litfichiercriteres(QByteArrayView octets) {
    Lecteur lecteur(octets);
    if (lecteur.texte() != FichierCriteres::entete)
        return std::nullopt;
    FichierCriteres f;
    litonglets(lecteur, f);
    litlignes(lecteur, f);
    return f;
}

void prendlignes(FichierCriteres& f, const ListeSelection& liste) {
    for (std::size_t colonne = 0; colonne < f.coldata.size(); ++colonne)
        f.coldata[colonne] = liste.colonnes().champ(static_cast<int>(colonne));
    f.lignes.clear();
    f.lignes.reserve(static_cast<std::size_t>(liste.lignes()));
    for (int rang = 1; rang < liste.rows(); ++rang) {
        FichierCriteres::Ligne ligne;
        for (std::size_t colonne = 0; colonne < ligne.cellules.size(); ++colonne)
            ligne.cellules[colonne] = liste.texte(rang, static_cast<int>(colonne));
        ligne.cle = liste.cle(rang);
        f.lignes.push_back(std::move(ligne));
    }
}

void rendlignes(const FichierCriteres& f, Lignes& lignes) {
    lignes.vide();
    for (const FichierCriteres::Ligne& ligne : f.lignes) {
        std::array<QStringView, Lignes::Clef> champs;
        for (std::size_t colonne = 0; colonne < f.coldata.size(); ++colonne) {
            if (const int champ = f.coldata[colonne]; champ >= 0 && champ < Lignes::Clef)
                champs[static_cast<std::size_t>(champ)] = ligne.cellules[colonne];
        }
        if (!lignes.ajoute({champs[Lignes::Reference], champs[Lignes::Numart], champs[Lignes::Titre],
                            champs[Lignes::Motcle1], champs[Lignes::Motcle2], champs[Lignes::Motcle3], ligne.cle}))
            return;
    }
}

void rendmots(const FichierCriteres& f, Resultat& resultat) {
    if (!f.texterapide.isEmpty())
        resultat.mot1 = remplacecodes(f.texterapide);
    if (!f.criteres.texterech[0].isEmpty())
        resultat.mot1 = remplacecodes(f.criteres.texterech[0]);
    resultat.mot2 = remplacecodes(f.criteres.texterech[1]);
}

} // namespace velm
