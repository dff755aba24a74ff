#include "document/ui/voletliens.h"

#include "core/texte.h"
#include "document/ui/listedeliens.h"
#include "platform/base/memory.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/icons.h"

#include <QMenu>
#include <QTimerEvent>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

SplitterBar* separateur(Qt::Orientation sens, const QString& nom, const QString& libelle, QWidget* fenetre) {
    auto* barre = new SplitterBar(sens, fenetre);
    barre->setObjectName(nom);
    barre->setAccessibleName(libelle);
    return barre;
}

} // namespace

// In the order in which the Tab key walks them.
VoletLiens::VoletLiens(const ContexteTextes& contexte, QWidget* fenetre)
    : QObject(fenetre), contexte_(contexte),
      separateurlisteh_(
          separateur(Qt::Horizontal, u"separateurlisteh"_s, contexte.texte(Texte::HauteurDesListes), fenetre)),
      liens_(new ListeDeLiens(ListeDeLiens::liens(), contexte.lecture.corpus, contexte.lecture.texte, fenetre)),
      separateurlistev_(
          separateur(Qt::Vertical, u"separateurlistev"_s, contexte.texte(Texte::PartageEntreLesListes), fenetre)),
      correlats_(
          new ListeDeLiens(ListeDeLiens::correlats(), contexte.lecture.corpus, contexte.lecture.texte, fenetre)) {
    for (ListeDeLiens* liste : {liens_, correlats_}) {
        connect(liste, &ListeDeLiens::basculee, this, [this, liste] { emit basculee(liste); });
        connect(liste, &ListeDeLiens::ligneouverte, this, &VoletLiens::ouverte);
    }
    construitmenu({u"ContextMenuLiens"_s, u"MnuLiensOuvrir"_s, Texte::OuvrirLeCite, u"MnuLiensSelection"_s,
                   Texte::PlacerLesCitesDansLaListe},
                  *liens_, fenetre);
    construitmenu({u"ContextMenuCorrelats"_s, u"MnuCorrelatsOuvrir"_s, Texte::OuvrirLeCitant,
                   u"MnuCorrelatsSelection"_s, Texte::PlacerLesCitantsDansLaListe},
                  *correlats_, fenetre);
}

void VoletLiens::construitmenu(const Menu& noms, ListeDeLiens& liste, QWidget* fenetre) {
    auto* menu = new QMenu(fenetre);
    menu->setObjectName(noms.nom);
    QAction* ouvrir = menu->addAction(icon(u"ouvrir"_s), contexte_.texte(noms.texteouvrir));
    ouvrir->setObjectName(noms.ouvrir);
    connect(ouvrir, &QAction::triggered, &liste, &ListeDeLiens::ouvrelignecourante);
    QAction* enselection = menu->addAction(icon(u"Liste"_s), contexte_.texte(noms.texteselection));
    enselection->setObjectName(noms.selection);
    connect(enselection, &QAction::triggered, this, [this, &liste] { emit selection(liste.cles()); });
    connect(&liste, &ListeDeLiens::menudemande, menu, [menu, ouvrir, enselection, &liste](const QPoint& ou) {
        ouvrir->setEnabled(liste.grille()->row() > 0);
        enselection->setEnabled(liste.grille()->rows() > 1);
        menu->popup(ou);
    });
}

void VoletLiens::oublie() {
    for (ListeDeLiens* liste : {liens_, correlats_}) {
        if (!liste->ouverte())
            liste->oublie();
    }
}

void VoletLiens::compte(const Cle& cle) {
    acompter_ = cle;
    bientot_.start(0, this);
}

void VoletLiens::timerEvent(QTimerEvent*) {
    bientot_.stop();
    // Where the memory does not suffice for counting, the number stays unknown, and nothing is said: nobody has asked
    // for the rows.
    withinMemory([this] {
        for (ListeDeLiens* liste : {liens_, correlats_}) {
            if (!liste->ouverte())
                liste->compte(acompter_);
        }
    });
}

void VoletLiens::bascule(ListeDeLiens& liste, const Cle& cle) {
    const ListeDeLiens& autre = &liste == liens_ ? *correlats_ : *liens_;
    const bool ferme = liste.placee() && liste.ouverte();
    if (ferme)
        liste.ferme();
    else
        contexte_.remplit([&] { liste.ouvre(cle); });
    emit montrees(!ferme || autre.ouverte());
}

} // namespace velm
