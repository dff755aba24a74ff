// Commands that search, with the engines of the program.
#include "outil/base.h"
#include "search/recherchedico.h"
#include "search/rechercherapide.h"
#include "search/typescherches.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace velm::outil {

namespace {

/// Answers the question about many documents: all of them are shown, as nobody named a limit.
class SansQuestions final : public Dialogues {
public:
    using Dialogues::message;
    Bouton message(const Message&) override { return Bouton::Non; }
    std::optional<QString> openFile(const ChoixFichier&) override { return std::nullopt; }
    std::optional<QString> saveFile(const ChoixFichier&) override { return std::nullopt; }
    std::optional<QString> chooseFolder(const QString&, const QString&) override { return std::nullopt; }
};

/// What the options of both commands ask for.
struct Demande {
    QString texte;
    QByteArray lettres = touteslettres();
    qint64 limite = sanslimite;
    QString base;
    bool json = false;
};

int litdemande(Contexte& contexte, int nomdesarguments, Demande& demande) {
    demande.json = contexte.option(QStringLiteral("--json"));
    demande.base = cheminbase(contexte);
    const QString types = contexte.valeur(QStringLiteral("--types"));
    const QString limite = contexte.valeur(QStringLiteral("--limite"));
    if (!contexte.optioninconnue().isEmpty())
        return contexte.echoue(LigneIncorrecte, 9338, {contexte.optioninconnue()});
    if (contexte.arguments().isEmpty())
        return contexte.echoue(LigneIncorrecte, 9336, {contexte.texte(nomdesarguments)});
    demande.texte = contexte.arguments().join(u' ');
    if (!types.isEmpty()) {
        const auto lettres = lettresdescodes(types.toUpper());
        if (!lettres)
            return contexte.echoue(LigneIncorrecte, 9339, {types, QStringLiteral("--types")});
        demande.lettres = *lettres;
    }
    if (!limite.isEmpty()) {
        bool nombre = false;
        demande.limite = limite.toLongLong(&nombre);
        if (!nombre || demande.limite < 1)
            return contexte.echoue(LigneIncorrecte, 9339, {limite, QStringLiteral("--limite")});
    }
    return Reussite;
}

/// A search without a window.
class Banc {
public:
    explicit Banc(Contexte& contexte)
        : contexte_(contexte),
          liste_([&contexte](int id) { return contexte.texte(id); }), atelier_{corpus,
                                                                               liste_,
                                                                               sablier_,
                                                                               dialogues_,
                                                                               cession_,
                                                                               [&contexte](int id) {
                                                                                   return contexte.texte(id);
                                                                               },
                                                                               [](const QString&) {}} {}

    const Atelier& atelier() const { return atelier_; }

    QJsonObject json() const {
        QJsonArray rangs;
        for (int rang = 1; rang < liste_.rows(); ++rang)
            rangs.append(
                QJsonObject{{QStringLiteral("cle"), liste_.cle(rang)},
                            {QStringLiteral("titre"), liste_.champ(rang, ListeSelection::Titre)},
                            {QStringLiteral("motscles"), QJsonArray{liste_.champ(rang, ListeSelection::Motcle1),
                                                                    liste_.champ(rang, ListeSelection::Motcle2),
                                                                    liste_.champ(rang, ListeSelection::Motcle3)}}});
        return {{QStringLiteral("nombre"), liste_.lignes()},
                {QStringLiteral("mot1"), liste_.mot1},
                {QStringLiteral("mot2"), liste_.mot2},
                {QStringLiteral("documents"), rangs}};
    }

    void ecrit(const QStringList& lignes, bool enjson) const {
        if (enjson) {
            QJsonObject objet = json();
            objet.insert(QStringLiteral("lignes"), QJsonArray::fromStringList(lignes));
            contexte_.ecrit(QJsonDocument(objet).toJson(QJsonDocument::Indented));
            return;
        }
        for (const QString& ligne : lignes)
            contexte_.ligne(ligne);
        for (int rang = 1; rang < liste_.rows(); ++rang)
            contexte_.ligne(liste_.cle(rang) + u'\t' + liste_.champ(rang, ListeSelection::Titre));
        contexte_.ligne(textecompte(liste_.lignes(), atelier_.texte).trimmed());
    }

    Corpus corpus;
    EtatRecherche etat;

private:
    Contexte& contexte_;
    ListeSelection liste_;
    SablierMuet sablier_;
    SansQuestions dialogues_;
    Cession cession_;
    Atelier atelier_;
};

} // namespace

int mots(Contexte& contexte) {
    const bool ou = contexte.option(QStringLiteral("--ou"));
    Demande demande;
    if (const int code = litdemande(contexte, 9452, demande); code != Reussite)
        return code;
    Banc banc(contexte);
    if (const int code = ouvrebase(contexte, banc.corpus, demande.base); code != Reussite)
        return code;
    QStringList lignes;
    RechercheDico recherche(banc.atelier(), [&lignes](const QString& ligne) { lignes << ligne; });
    const ResultatDico resultat = recherche.cherche({demande.texte, demande.lettres, !ou, demande.limite}, banc.etat);
    if (resultat.issue == ResultatDico::Issue::TexteCourt)
        return contexte.echoue(LigneIncorrecte, 9455);
    banc.ecrit(lignes, demande.json);
    return Reussite;
}

int rapide(Contexte& contexte) {
    Demande demande;
    if (const int code = litdemande(contexte, 9453, demande); code != Reussite)
        return code;
    Banc banc(contexte);
    if (const int code = ouvrebase(contexte, banc.corpus, demande.base); code != Reussite)
        return code;
    RechercheRapide(banc.atelier(), {}).cherche({demande.texte, demande.lettres, demande.limite}, banc.etat);
    banc.ecrit({}, demande.json);
    return Reussite;
}

} // namespace velm::outil
