#include "document/lecture.h"

#include "core/adresse.h"
#include "core/langue.h"
#include "core/texte.h"
#include "document/clic.h"
#include "platform/base/memory.h"
#include "platform/system/addresses.h"
#include "platform/text/number.h"

#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

Lecture::Lecture(const PartiesLecture& parties, const ContexteLecture& contexte)
    : parties_(parties), contexte_(contexte) {}

// ---- the document

void Lecture::affiche(const Cle& cle, const QString& ancre) {
    montre(cle, abc_, ancre);
}

void Lecture::reaffiche() {
    if (!referencecourante().isEmpty())
        montre(cle(), false, QString());
}

qint64 Lecture::branche() const {
    return roundHalfEven(val(document_.numeroarborescence));
}

void Lecture::changeabc(bool abc) {
    abc_ = abc;
    parties_.barre.montreabc(abc);
    if (!referencecourante().isEmpty())
        montre(cle(), abc, QString());
}

void Lecture::montre(const Cle& cle, bool abc, const QString& ancre) {
    constexpr auto tropgrand = Texte::DocumentTropGrand;
    constexpr qsizetype plusdetitre = 200; // characters that the message shows
    fixemarques(false);                    // the new text has no marks
    entiere_ = withinMemory([&] {
        affichedocument(*this, cle, abc, ancre,
                        {contexte_.corpus, contexte_.styles, contexte_.sablier, contexte_.libelle, contexte_.bornes});
    });
    if (!entiere_)
        parties_.vue.dit(remplace(contexte_.texte(tropgrand), {document_.titre.left(plusdetitre)}));
}

void Lecture::activemenus() {
    if (!std::exchange(menusactifs_, true))
        parties_.vue.activemenus();
}

// ---- links

qsizetype Lecture::nombreliens() const {
    return listes_.Listehyperlien.size() + listes_.ListeUrl.size() + listes_.ListeEmail.size();
}

PlageLien Lecture::plage(qsizetype lien) const {
    qsizetype rang = lien;
    if (rang < listes_.Listehyperlien.size())
        return {listes_.Listestarthyperlien.valeur(rang), listes_.Listeendhyperlien.valeur(rang)};
    rang -= listes_.Listehyperlien.size();
    if (rang < listes_.ListeUrl.size())
        return {listes_.ListeStartUrl.valeur(rang), listes_.ListeEndUrl.valeur(rang)};
    rang -= listes_.ListeUrl.size();
    return {listes_.ListeStartEmail.valeur(rang), listes_.ListeEndEmail.valeur(rang)};
}

QString Lecture::cible(qsizetype lien) const {
    if (lien < 0 || lien >= listes_.Listehyperlien.size())
        return titrecible(lien);
    const QString& visee = listes_.Listehyperlien.at(lien);
    const QString titre = titrecible(lien);
    return titre.isEmpty() ? visee : visee + u" - "_s + titre;
}

QString Lecture::titrecible(qsizetype lien) const {
    if (lien < 0)
        return {};
    const qsizetype rang = lien - listes_.Listehyperlien.size();
    if (rang >= 0)
        return rang < listes_.ListeUrl.size() ? listes_.ListeUrl.at(rang)
                                              : listes_.ListeEmail.value(rang - listes_.ListeUrl.size());
    const std::optional<Notice> notice = contexte_.corpus.document(decoupecle(listes_.Listehyperlien.at(lien)));
    return notice ? notice->titre : QString();
}

void Lecture::suit(qsizetype position) {
    const Clic clic = clicdans(listes_, position);
    switch (clic.vers) {
    case Clic::Vers::Document:
        parties_.vue.ditcible(QString()); // the pointer rests where the link was
        contexte_.navigation.ouvre(decoupecle(clic.cible), {.replier = true, .ancre = clic.ancre});
        break;
    case Clic::Vers::Adresse:
        ditsirefuse(contexte_.navigateur.openUrl(adresseaouvrir(clic.cible)), clic.cible);
        break;
    case Clic::Vers::Courrier:
        ditsirefuse(contexte_.navigateur.mail(clic.cible), clic.cible);
        break;
    case Clic::Vers::Rien:
        break;
    }
}

void Lecture::ditsirefuse(Navigateur::Handed issue, const QString& adresse) const {
    constexpr auto refusee = Texte::LienRefuse;
    if (issue == Navigateur::Handed::Refused)
        parties_.vue.dit(remplace(contexte_.texte(refusee), {u"\n\n"_s + shownAddress(adresse)}));
}

// ---- words

void Lecture::recoitmots(const QString& mot1, const QString& mot2, const Marquage& marquage) {
    const bool autres = mot1 != mots_.mot1 || mot2 != mots_.mot2;
    // The document was here already, with the marks of an earlier search.
    if (autres && marques_)
        reaffiche();
    mots_ = {mot1, mot2, 0};
    parties_.barre.montremots(!mot1.isEmpty());
    if (mot1.isEmpty() || !marquage.automatique)
        return;
    fixemarques(true);
    if (const Marques marques = marque(marquage); marques.premiere >= 0)
        parties_.vue.revele(marques.premiere);
}

void Lecture::changemarques(bool marques, const Marquage& marquage) {
    fixemarques(marques);
    if (marques) {
        marque(marquage);
    } else if (!referencecourante().isEmpty()) {
        abc_ = false;
        parties_.barre.montreabc(false);
        reaffiche();
    }
}

void Lecture::fixemarques(bool marques) {
    marques_ = marques;
    parties_.barre.montremarques(marques);
    if (!marques)
        parties_.vue.montreoccurrences({});
}

Marques Lecture::marque(const Marquage& marquage) {
    Marques marques = marquemots(parties_.controle, mots_, marquage);
    parties_.vue.montreoccurrences(marques.ou);
    return marques;
}

void Lecture::vamot(bool suivant) {
    RichTextControl& controle = parties_.controle;
    const std::optional<Occurrence> ici =
        suivant ? motsuivant(controle.richText(), mots_) : motprecedent(controle.richText(), mots_);
    if (!ici)
        return;
    controle.setSelStart(ici->debut);
    controle.setSelLength(ici->longueur);
    mots_.posdepartrecherche = ici->debut;
}

} // namespace velm
