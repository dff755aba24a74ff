#include "print/sortietextes.h"

#include "platform/system/files.h"
#include "print/fichiertemporaire.h"
#include "print/nomdefichier.h"

#include <QRegularExpression>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int filtreriche = 1;

/// The path with the extension of its form, unless the user has given it one: titles often have a point ("Art. L. 12").
QString avecsuffixe(const QString& chemin, const QString& suffixe) {
    static const QRegularExpression donne(u"\\.[a-z][a-z0-9]{0,4}$"_s, QRegularExpression::CaseInsensitiveOption);
    return chemin.contains(donne) ? chemin : chemin + u'.' + suffixe;
}

} // namespace

SortieTextes::SortieTextes(const Donnees& donnees)
    : donnees_(donnees), fichiers_(donnees.dialogues, donnees.sablier, donnees.courrier, donnees.texte) {}

bool SortieTextes::enregistresous(const QString& titrecourant, const RichTextControl& rtf) const {
    const std::optional<QString> nom = nomraccourci(QString(titrecourant).replace(u':', u' '));
    if (!nom)
        return false;
    ChoixFichier ou;
    ou.titre = donnees_.texte(Texte::TitreEnregistrement);
    ou.filtre = u"Rich Text Files (*.rtf)|*.rtf|Text (*.txt)|*.txt"_s;
    ou.nom = *nom;
    int filtre = filtreriche;
    ou.filtrechoisi = &filtre;
    const std::optional<QString> choisi = donnees_.dialogues.saveFile(ou);
    if (!choisi)
        return false;
    const bool riche = filtre == filtreriche;
    const QString chemin = avecsuffixe(*choisi, riche ? u"rtf"_s : u"txt"_s);
    // Of the name as it was typed the dialog has asked.
    if (chemin != *choisi && !veutremplacer(chemin))
        return false;
    const Attente attente(donnees_.sablier);
    return writeWhole(chemin, riche ? rtf.textRtf() : rtf.text().toUtf8()).ok();
}

bool SortieTextes::veutremplacer(const QString& chemin) const {
    if (!fileExists(chemin))
        return true;
    const QString question =
        donnees_.texte(Texte::LeFichier) + u' ' + chemin + u' ' + donnees_.texte(Texte::ExisteDeja);
    return donnees_.dialogues.message(question, donnees_.texte(Texte::TitreEnregistrement), Icone::Question,
                                      Bouton::Oui | Bouton::Non, Bouton::Non) == Bouton::Oui;
}

void SortieTextes::envoietexte(const QString& titrecourant, const RichTextControl& rtf) const {
    const QString corps = rtf.selLength() > 0 ? rtf.selText() : rtf.text();
    if (fitsMessage(titrecourant, corps)) {
        envoimessage(titrecourant, corps, true);
        return;
    }
    donnees_.dialogues.message(donnees_.texte(Texte::TexteTropLong), donnees_.texte(Texte::TitreEnvoi),
                               Icone::Information);
    envoiefichier(titrecourant, rtf);
}

void SortieTextes::envoiefichier(const QString& titrecourant, const RichTextControl& rtf) const {
    const FichierTemporaire fichier(titrecourant, rtf.selLength() > 0 ? rtf.selRtf() : rtf.textRtf());
    if (fichier.erreur().ok())
        envoimessage(titrecourant, fichier.chemin(), false);
    else
        fichiers_.ditnonecrit(fichier.chemin(), fichier.erreur(), Texte::TitreEnvoi);
}

/// `contenu`: the body, or the path of what is attached. The mail service keeps a file of its own for as long as the
/// mail program may want it.
void SortieTextes::envoimessage(const QString& sujet, const QString& contenu, bool texte) const {
    if (texte) {
        fichiers_.envoie({sujet, contenu, {}, {}});
        return;
    }
    const FileBytes lus = readPlain(contenu);
    if (lus.ok())
        fichiers_.envoie({sujet, u" "_s, sujet + u".RTF"_s, lus.bytes});
    else
        fichiers_.ditnonecrit(contenu, lus.error, Texte::TitreEnvoi);
}

} // namespace velm
