#include "search/etatformulaire.h"

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

int rangvalide(int rang, int nombre) {
    return rang >= 0 && rang < nombre ? rang : 0;
}

} // namespace

void ListeMotsCles::lirelesmotscles(Corpus& corpus) {
    if (lus_)
        return;
    Recordset& table = corpus.motcles();
    for (table.moveFirst(); !table.eof(); table.moveNext())
        items_ << table.text(u"motcle"_s);
    lus_ = true;
}

int rangditem(const QStringList& items, const QString& texte) {
    return static_cast<int>(std::max<qsizetype>(items.indexOf(texte), 0));
}

FichierCriteres fichierde(const EtatFormulaire& etat, const ItemsFormulaire& items, const ListeSelection& liste) {
    FichierCriteres f;
    f.ongletrecherche = etat.ongletrecherche;
    f.Textedico = etat.Textedico;
    f.checkandordico = etat.checkandordico ? 1 : 0;
    f.Combonombredico = etat.Combonombredico;
    f.texterapide = etat.texterapide;
    f.combonombre = etat.combonombre;
    f.criteres = etat.criteres;
    f.combomotcle = etat.criteres.motcle.isEmpty() ? items.combomotcle.value(0) : etat.criteres.motcle;
    f.combotype = items.combotype.value(etat.criteres.type);
    f.conjonction = items.conjonction.value(etat.criteres.conjonction);
    f.boutons = etat.boutons;
    prendlignes(f, liste);
    return f;
}

EtatFormulaire etatde(const FichierCriteres& fichier, const ItemsFormulaire& items, int prefixe) {
    EtatFormulaire etat;
    etat.ongletrecherche = rangvalide(fichier.ongletrecherche, EtatFormulaire::onglets);
    etat.Textedico = fichier.Textedico;
    etat.checkandordico = fichier.checkandordico != 0;
    etat.Combonombredico = rangvalide(fichier.Combonombredico, EtatFormulaire::limites);
    etat.texterapide = fichier.texterapide;
    etat.combonombre = rangvalide(fichier.combonombre, EtatFormulaire::limites);
    etat.criteres = fichier.criteres;
    const int motcle = rangditem(items.combomotcle, fichier.combomotcle);
    etat.criteres.motcle = motcle == 0 ? QString() : items.combomotcle.at(motcle);
    etat.criteres.type = rangditem(items.combotype, fichier.combotype);
    etat.criteres.conjonction = rangditem(items.conjonction, fichier.conjonction);
    etat.criteres.prefixe = prefixe;
    etat.boutons = fichier.boutons;
    return etat;
}

} // namespace velm
