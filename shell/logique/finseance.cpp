#include "shell/logique/finseance.h"

#include "core/cle.h"
#include "core/tablereglages.h"
#include "core/texte.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Key of the first document window of a slot's collection, or eight blanks. Windows that show lists are not recorded.
QString cledelafenetre(const EtatFenetres& etat, int indice) {
    // The twelfth slot reads past the end of the eleven codes and matches nothing.
    const QString code = codestypes.mid(2 * static_cast<qsizetype>(indice), 2).toString();
    QString rien(8, u' ');
    if (code.isEmpty())
        return rien;
    for (const FilleOuverte& fille : etat.filles) {
        if (fille.nature == Nature::Document && fille.reference.startsWith(code))
            return fille.reference.leftJustified(8, u' ', true);
    }
    return rien;
}

/// Two characters: the slot whose entry in the window list bears the active child's caption, or "-1".
QString fenetreactive(const EtatFenetres& etat) {
    if (etat.titreactif) {
        for (int indice = 0; indice < nombredefenetres; ++indice) {
            if (etat.libelles[static_cast<std::size_t>(indice)] == *etat.titreactif)
                return QString::number(indice).rightJustified(2, u'0');
        }
    }
    return u"-1"_s;
}

} // namespace

FinSeance::FinSeance(const Seance& seance, Reglages& reglages, Langue& langue, Corpus& corpus, Dialogues& dialogues,
                     const Ecrans& ecrans)
    : seance_(seance), reglages_(reglages), langue_(langue), corpus_(corpus), dialogues_(dialogues), ecrans_(ecrans) {}

bool FinSeance::quittequestions() {
    constexpr int pagedaide = 13;
    if (seance_.preferences().checkquit == 0) {
        const Bouton reponse = dialogues_.message(langue_.lireressource(Texte::QuestionQuitter),
                                                  langue_.lireressource(Texte::TitreQuitter), Icone::Question,
                                                  Bouton::Oui | Bouton::Non | Bouton::Aide, Bouton::Aucun, pagedaide);
        if (reponse != Bouton::Oui)
            return false;
    }
    if (ecrans_.travaux.impressionouverte()) {
        const Bouton reponse = dialogues_.message(langue_.lireressource(Texte::QuestionImpressionEnCours),
                                                  langue_.lireressource(Texte::TitreImpressionEnCours), Icone::Question,
                                                  Bouton::Oui | Bouton::Non);
        if (reponse == Bouton::Oui)
            ecrans_.travaux.termineimpression();
        else
            ecrans_.travaux.abandonneimpression();
    }
    return true;
}

void FinSeance::ecritfenetres(const EtatFenetres& etat) {
    QString drapeaux;
    QString cles;
    for (int indice = 0; indice < nombredefenetres; ++indice) {
        drapeaux += etat.cochees[static_cast<std::size_t>(indice)] ? u'X' : u' ';
        cles += cledelafenetre(etat, indice);
    }
    reglages_.ecrit(reglage::fenetresouvertes, fenetreactive(etat) + drapeaux);
    reglages_.ecrit(reglage::fenetrescontenus, cles);
    reglages_.note(reglage::largeurselection, etat.largeurpane);
}

void FinSeance::ecritposition(const PositionFenetre& position) {
    reglages_.note(reglage::cadreetat, position.etat);
    reglages_.note(reglage::cadregauche, position.gauche);
    reglages_.note(reglage::cadrehaut, position.haut);
    reglages_.note(reglage::cadrelargeur, position.largeur);
    reglages_.note(reglage::cadrehauteur, position.hauteur);
    reglages_.ecrit(reglage::dossierbase, seance_.parametres().repertoiredebase);
}

bool FinSeance::quitteprogramme() {
    if (!quittequestions())
        return false;
    ferme();
    return true;
}

void FinSeance::termine() {
    if (fermee_)
        return;
    if (ecrans_.travaux.impressionouverte())
        ecrans_.travaux.abandonneimpression();
    ferme();
}

void FinSeance::ferme() {
    fermee_ = true;
    const EtatFenetres etat = ecrans_.cadre.etatfenetres();
    {
        // Everything that the exit writes reaches the disk at once; windows that save their own place join in.
        ReglagesStore::Batch lot(reglages_.magasin());
        ecritfenetres(etat);
        corpus_.fermebase();
        ecrans_.dossiers.fermedossiers();
        ecrans_.cadre.sauvederniers();
        ecrans_.cadre.fermefenetres();
        ecritposition(etat.principale);
        if (!lot.commit())
            reglages_.signaleechec();
    }
    ecrans_.cadre.fermeprincipale();
}

void FinSeance::enregistre() {
    if (fermee_)
        return;
    const EtatFenetres etat = ecrans_.cadre.etatfenetres();
    ReglagesStore::Batch lot(reglages_.magasin());
    ecritfenetres(etat);
    ecrans_.cadre.sauvederniers();
    ecrans_.cadre.notefenetres();
    ecritposition(etat.principale);
    if (!lot.commit())
        reglages_.signaleechec();
}

} // namespace velm
