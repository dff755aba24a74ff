#include "collection/corps.h"

#include "collection/aspects.h"
#include "collection/jetons.h"
#include "core/texte.h"
#include "platform/richtext/rtf.h"

#include <algorithm>
#include <array>

namespace velm {
namespace {

/// A shown text stops growing here, as a displayed one does.
constexpr qsizetype longueurmaximaledutexte = qsizetype{8} * 1024 * 1024;
/// Inclusions add no more to a text that is longer than this: included in each other ten times, ten times over, a few
/// short documents would otherwise fill any memory.
constexpr qsizetype longueuravecinclusions = qsizetype{1024} * 1024;

constexpr int apresrangee = 60;
constexpr int aprestableau = 180;

bool estunseul(const std::vector<Morceau>& morceaux, Morceau::Genre genre) {
    return morceaux.size() == 1 && morceaux.front().genre == genre;
}

} // namespace

FaiseurDeCorps::FaiseurDeCorps(const Provenance& provenance) : provenance_(provenance) {
    signale_ = [this](QStringView morceau, bool tolerable) {
        probleme(Texte::BalisageIncorrect, morceau.toString(), tolerable);
    };
}

void FaiseurDeCorps::fait(qsizetype document, CorpsFait& resultat) {
    resultat_ = &resultat;
    document_ = document;
    resultat.montre.resize(0);
    resultat.liens.clear();
    resultat.problemes.clear();
    vus_.clear();
    inclus_.assign(1, document);
    muet_ = false;
    const Corps corps = provenance_.corps(document);
    if (!corps.rtf.isNull()) {
        resultat.contenu = corps.rtf;
        richetexte(corps.rtf);
        return;
    }
    rtf_.vide();
    rtf_.commande(entete);
    ecrit(corps.paragraphes);
    rtf_.commande("}");
    resultat.contenu = rtf_.resultat();
}

void FaiseurDeCorps::ecrit(const std::vector<Paragraphe>& paragraphes) {
    section_.clear();
    findue_ = false;
    std::vector<QStringView> rangees;
    for (std::size_t i = 0; i < paragraphes.size(); ++i) {
        if (paragraphes[i].style != StyleSource::Tableau) {
            paragraphe(paragraphes[i]);
            continue;
        }
        rangees.clear();
        for (; i < paragraphes.size() && paragraphes[i].style == StyleSource::Tableau; ++i)
            rangees.push_back(paragraphes[i].texte);
        --i;
        tableau(rangees);
    }
    if (!section_.isEmpty())
        rtf_.commande("\\{-S\\}");
    if (findue_)
        rtf_.commande("\\par");
}

void FaiseurDeCorps::pose(StyleSource style, QByteArrayView mise, int demipoints) {
    style_ = style;
    mise_ = mise.toByteArray();
    demipoints_ = demipoints;
    const Aspect& look = aspect(style);
    rtf_.commande(look.paragraphe);
    rtf_.commande(mise);
    rtf_.commande("\\plain");
    rtf_.commande(look.police);
    rtf_.nombre("\\fs", demipoints);
    rtf_.commande(look.gras ? (look.italique ? "\\b\\i " : "\\b ") : look.italique ? "\\i " : " ");
    gras_ = look.gras;
    italique_ = look.italique;
    lien_ = false;
}

/// Ends the paragraph before and begins one. The tokens that end and open sections stand at its very beginning: so a
/// section takes its last line end with it when condensed display leaves it out.
void FaiseurDeCorps::ouvreparagraphe(StyleSource style, QByteArrayView mise, int demipoints) {
    if (findue_) {
        rtf_.commande("\\par\n");
        montre(u"\r\n");
    }
    // Formats carry on from paragraph to paragraph; a bullet has to be named each time.
    if (findue_ && style == style_ && style != StyleSource::Liste && mise == mise_ && demipoints == demipoints_)
        format(false, false, false);
    else
        pose(style, mise, demipoints);
    findue_ = true;
    const QString& section = provenance_.sections()[static_cast<std::size_t>(style)];
    if (section == section_)
        return;
    if (section.isEmpty()) {
        rtf_.commande("\\{-S\\}");
    } else {
        rtf_.commande("\\{S=");
        rtf_.texte(section);
        rtf_.commande("\\}");
    }
    section_ = section;
}

void FaiseurDeCorps::format(bool gras, bool italique, bool lien) {
    const Aspect& look = aspect(style_);
    gras = gras || look.gras;
    italique = italique || look.italique;
    if (gras != gras_)
        rtf_.commande(gras ? "\\b " : "\\b0 ");
    if (italique != italique_)
        rtf_.commande(italique ? "\\i " : "\\i0 ");
    if (lien != lien_)
        rtf_.commande(lien ? couleurdelien : look.couleur);
    gras_ = gras;
    italique_ = italique;
    lien_ = lien;
}

void FaiseurDeCorps::ouvrelien(Morceau::Genre genre) {
    rtf_.commande(lettredelien(genre));
}

void FaiseurDeCorps::fermelien(Morceau::Genre genre, QStringView cible) {
    rtf_.commande("|");
    rtf_.texte(cible);
    rtf_.commande("\\}");
    if (genre != Morceau::Genre::Lien)
        return;
    const CleDocument cle = lirecle(cible);
    if (cle == pasdecle)
        probleme(Texte::BalisageIncorrect, cible.toString(), false);
    else
        note(cle, cible);
}

void FaiseurDeCorps::paragraphe(const Paragraphe& paragraphe) {
    decoupebalisage(paragraphe.texte, morceaux_, signale_);
    ouvreparagraphe(paragraphe.style, {}, aspect(paragraphe.style).demipoints);
    const Morceau* lien = nullptr;
    for (const Morceau& morceau : morceaux_) {
        switch (morceau.genre) {
        case Morceau::Genre::Texte:
            format(morceau.gras, morceau.italique, lien != nullptr);
            rtf_.texte(morceau.texte);
            montre(morceau.texte);
            break;
        case Morceau::Genre::Lien:
        case Morceau::Genre::Web:
        case Morceau::Genre::Mail:
            lien = &morceau;
            format(morceau.gras, morceau.italique, true);
            ouvrelien(morceau.genre);
            break;
        case Morceau::Genre::FinDeLien:
            fermelien(lien->genre, lien->texte);
            lien = nullptr;
            break;
        case Morceau::Genre::Inclusion:
            format(morceau.gras, morceau.italique, false);
            rtf_.commande("\\{I=");
            rtf_.texte(morceau.texte);
            rtf_.commande("\\}");
            inclut(morceau.texte);
            break;
        case Morceau::Genre::SautDePage:
            rtf_.commande("\\{FF\\}");
            montre(u"\r\n");
            break;
        case Morceau::Genre::FinDeLigne:
            rtf_.commande(lien != nullptr ? " " : "\\line ");
            montre(lien != nullptr ? u" " : u"\r\n");
            break;
        }
    }
    // An included document brings its own last paragraph end, a page break its own line ends.
    if (estunseul(morceaux_, Morceau::Genre::Inclusion) || estunseul(morceaux_, Morceau::Genre::SautDePage))
        findue_ = false;
}

void FaiseurDeCorps::fragments(const std::vector<Fragment>& cellule, const std::vector<LienDeTableau>& liens) {
    int lien = -1;
    const auto ferme = [&] {
        if (lien >= 0)
            fermelien(liens[static_cast<std::size_t>(lien)].genre, liens[static_cast<std::size_t>(lien)].cible);
        lien = -1;
    };
    for (const Fragment& fragment : cellule) {
        if (fragment.lien != lien)
            ferme();
        format(fragment.gras, fragment.italique, fragment.lien >= 0);
        if (fragment.lien >= 0 && lien < 0)
            ouvrelien(liens[static_cast<std::size_t>(fragment.lien)].genre);
        lien = fragment.lien;
        rtf_.texte(fragment.texte);
        montre(fragment.texte);
    }
    ferme();
}

void FaiseurDeCorps::tableau(const std::vector<QStringView>& rangees) {
    const DispositionTableau disposition = disposetableau(rangees, signale_);
    EcritRtf mise;
    for (std::size_t l = 0; l < disposition.lignes.size(); ++l) {
        const LigneDeTableau& ligne = disposition.lignes[l];
        mise.vide();
        if (ligne.derniere)
            mise.nombre("\\sa", l + 1 == disposition.lignes.size() ? aprestableau : apresrangee);
        if (disposition.suspendu > 0 && !ligne.pleine) {
            mise.nombre("\\fi-", disposition.suspendu);
            mise.nombre("\\li", disposition.suspendu);
        }
        if (!ligne.pleine) {
            for (const int taquet : disposition.taquets)
                mise.nombre("\\tx", taquet);
        }
        ouvreparagraphe(StyleSource::Tableau, mise.resultat(), disposition.demipoints);
        bool premiere = true;
        for (const auto& cellule : ligne.cellules) {
            if (!premiere) {
                format(false, false, false);
                rtf_.commande("\\tab ");
                montre(u"\t");
            }
            premiere = false;
            fragments(cellule, disposition.liens);
        }
    }
}

void FaiseurDeCorps::montre(QStringView texte) {
    if (resultat_->montre.size() + texte.size() <= longueurmaximaledutexte)
        resultat_->montre.append(texte);
}

/// A link counts for the document that holds it, not for those that include it.
void FaiseurDeCorps::note(CleDocument cible, QStringView texte) {
    if (muet_ || cible == provenance_.cle(document_))
        return;
    if (provenance_.cherche(cible) < 0) {
        probleme(Texte::LienAbsent, texte.toString(), true);
        return;
    }
    if (vus_.contains(cible))
        return;
    vus_.insert(cible);
    resultat_->liens.push_back(cible);
}

void FaiseurDeCorps::probleme(Texte texte, const QString& argument, bool avertissement) {
    // What is wrong in an included document is told where it stands.
    if (muet_)
        return;
    Probleme p = provenance_.lieu(document_);
    p.texte = texte;
    p.avertissement = avertissement;
    p.arguments = {argument.left(longueurextrait)};
    resultat_->problemes.push_back(std::move(p));
}

/// Adds the shown text of an included document.
void FaiseurDeCorps::inclut(QStringView texte) {
    const CleDocument cle = lirecle(texte);
    if (cle == pasdecle) {
        probleme(Texte::BalisageIncorrect, texte.toString(), false);
        return;
    }
    const qsizetype cible = provenance_.cherche(cle);
    if (cible < 0) {
        probleme(Texte::InclusionAbsente, texte.toString(), false);
        return;
    }
    // Cycles are told by the check of the source; here they only must not run on.
    if (std::find(inclus_.begin(), inclus_.end(), cible) != inclus_.end())
        return;
    const QString& ajout = texteinclus(cible);
    if (resultat_->montre.size() + ajout.size() > longueuravecinclusions)
        return;
    montre(ajout);
    montre(u"\r\n");
}

/// The shown text of a document that others include, made once.
const QString& FaiseurDeCorps::texteinclus(qsizetype cible) {
    if (const auto fait = textesinclus_->constFind(cible); fait != textesinclus_->constEnd())
        return *fait;
    inclus_.push_back(cible);
    CorpsFait inclus;
    FaiseurDeCorps autre(provenance_);
    autre.inclus_ = inclus_;
    autre.textesinclus_ = textesinclus_;
    autre.muet_ = true;
    autre.resultat_ = &inclus;
    autre.document_ = cible;
    const Corps corps = provenance_.corps(cible);
    if (corps.rtf.isNull())
        autre.ecrit(corps.paragraphes);
    else
        autre.richetexte(corps.rtf);
    inclus_.pop_back();
    return *textesinclus_->insert(cible, inclus.montre);
}

void FaiseurDeCorps::richetexte(const QByteArray& rtf) {
    QString texte;
    rtfToText(rtf, texte, RtfLoad::Whole);
    for (const Jeton& jeton : decoupejetons(texte)) {
        switch (jeton.genre) {
        case Jeton::Genre::Texte:
            montre(jeton.texte);
            break;
        case Jeton::Genre::SautDePage:
            montre(u"\r\n");
            break;
        case Jeton::Genre::Inclusion:
            inclut(jeton.texte);
            break;
        case Jeton::Genre::Lien:
            if (const CleDocument cle = lirecle(jeton.texte); cle != pasdecle)
                note(cle, jeton.texte);
            else
                probleme(Texte::BalisageIncorrect, jeton.texte.toString(), true);
            break;
        case Jeton::Genre::Douteux:
            probleme(Texte::BalisageIncorrect, jeton.texte.toString(), true);
            break;
        }
    }
}

} // namespace velm
