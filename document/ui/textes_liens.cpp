// The links of a document window, in the text and beside it, and the pop-up menus.
#include "core/adresse.h"
#include "core/cle.h"
#include "core/langue.h"
#include "document/clic.h"
#include "document/ui/listedeliens.h"
#include "document/ui/textes.h"
#include "platform/system/addresses.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/text/richtextbox.h"

#include <QMenu>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

QAction* entree(QMenu& menu, const QString& nom, const QString& texte, const QString& image, bool possible) {
    QAction* action = menu.addAction(image.isEmpty() ? QIcon() : icon(image), texte);
    action->setObjectName(nom);
    action->setEnabled(possible);
    return action;
}

} // namespace

// ---- lists

void Textes::basculeliste(ListeDeLiens& liste) {
    const ListeDeLiens& autre = &liste == liens_ ? *correlats_ : *liens_;
    const auto ouvre = [&] { remplit([&] { liste.ouvre(cle()); }); };
    if (!disposition_.listesvisibles) {
        ouvre();
        disposition_.ouvrelistes();
    } else if (!liste.ouverte()) {
        ouvre();
    } else {
        liste.ferme();
        if (!autre.ouverte())
            disposition_.fermelistes();
    }
    place();
}

// ---- links in the text

void Textes::relieliens() {
    std::vector<LinkRange> plages;
    const auto ajoute = [&plages](const QStringList& cibles, const ListePositions& debuts, const ListePositions& fins) {
        for (qsizetype rang = 0; rang < cibles.size(); ++rang)
            plages.push_back({debuts.valeur(rang), fins.valeur(rang)});
    };
    ajoute(listes_.Listehyperlien, listes_.Listestarthyperlien, listes_.Listeendhyperlien);
    ajoute(listes_.ListeUrl, listes_.ListeStartUrl, listes_.ListeEndUrl);
    ajoute(listes_.ListeEmail, listes_.ListeStartEmail, listes_.ListeEndEmail);
    vue_->setLinkRanges(plages);
}

void Textes::suit(qsizetype position) {
    const Clic clic = clicdans(listes_, position);
    switch (clic.vers) {
    case Clic::Vers::Document:
        emit cible(QString()); // the pointer rests where the link was
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

void Textes::ditsirefuse(Navigateur::Handed issue, const QString& adresse) const {
    constexpr int refusee = 9565;
    if (issue == Navigateur::Handed::Refused && contexte_.dit)
        contexte_.dit(remplace(texte(refusee), {u"\n\n"_s + shownAddress(adresse)}));
}

void Textes::survole(int lien) {
    emit cible(ciblede(lien));
}

/// What the status bar says of a link: the ranges stand in the order of relieliens().
QString Textes::ciblede(int lien) const {
    qsizetype rang = lien;
    if (rang < 0)
        return {};
    if (rang >= listes_.Listehyperlien.size()) {
        rang -= listes_.Listehyperlien.size();
        return rang < listes_.ListeUrl.size() ? listes_.ListeUrl.at(rang)
                                              : listes_.ListeEmail.value(rang - listes_.ListeUrl.size());
    }
    const QString& visee = listes_.Listehyperlien.at(rang);
    const std::optional<Notice> notice = contexte_.corpus.document(decoupecle(visee));
    return notice ? visee + u" - "_s + notice->titre : visee;
}

// ---- menus

void Textes::construitmenus() {
    menutexte_ = new QMenu(this);
    menutexte_->setObjectName(u"ContextMenu"_s);
    connect(entree(*menutexte_, u"MnuCopy"_s, texte(9059), u"Copier"_s, false), &QAction::triggered, this,
            &Textes::copie);
    connect(entree(*menutexte_, u"MnuSelectAll"_s, texte(9060), u"sélectionnertout"_s, false), &QAction::triggered,
            this, &Textes::toutselectionner);
    menutexte_->addSeparator();
    entree(*menutexte_, u"MnuPrint"_s, texte(9061), u"Imprimer"_s, false);
    QMenu* envoi = menutexte_->addMenu(icon(u"envoyer"_s), texte(9062));
    envoi->setObjectName(u"MnuSendfile"_s);
    envoi->setEnabled(false);
    for (int comment = 0; comment < 2; ++comment)
        entree(*envoi, u"MnuSend(%1)"_s.arg(comment), texte(9063 + comment),
               comment == 0 ? u"texte"_s : u"piècejointe"_s, false);
    connect(entree(*menutexte_, u"MnuStore"_s, texte(9065), u"rangerdocument"_s, false), &QAction::triggered, this,
            &Textes::range);
    menutexte_->addSeparator();
    for (ListeDeLiens* liste : {liens_, correlats_}) {
        const bool cites = liste == liens_;
        QAction* action = entree(*menutexte_, cites ? u"MnuOuvrirLiens"_s : u"MnuOuvrirCorrélats"_s,
                                 texte(cites ? 9066 : 9067), {}, true);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, liste] { basculeliste(*liste); });

        QMenu*& menu = cites ? menuliens_ : menucorrelats_;
        menu = new QMenu(this);
        menu->setObjectName(cites ? u"ContextMenuLiens"_s : u"ContextMenuCorrelats"_s);
        connect(entree(*menu, cites ? u"MnuLiensOuvrir"_s : u"MnuCorrelatsOuvrir"_s, texte(cites ? 9068 : 9070),
                       u"ouvrir"_s, true),
                &QAction::triggered, this, [liste] { liste->ouvrelignecourante(); });
        connect(entree(*menu, cites ? u"MnuLiensSelection"_s : u"MnuCorrelatsSelection"_s, texte(cites ? 9069 : 9071),
                       u"Liste"_s, true),
                &QAction::triggered, this, [this, liste] { emit selection(liste->cles()); });
        connect(liste, &ListeDeLiens::menudemande, this,
                [this, menu, liste](const QPoint& ou) { montremenuliste(*menu, *liste, ou); });
    }
}

void Textes::menutexte(const QPoint& ou) {
    for (QAction* action : menutexte_->actions()) {
        const QString nom = action->objectName();
        if (nom == u"MnuCopy" || nom == u"MnuSelectAll")
            action->setEnabled(menusactifs_ && vue_->control().length() > 0);
        else if (nom == u"MnuOuvrirLiens")
            action->setChecked(liens_->ouverte());
        else if (nom == u"MnuOuvrirCorrélats")
            action->setChecked(correlats_->ouverte());
    }
    menutexte_->popup(ou);
}

void Textes::montremenuliste(QMenu& menu, const ListeDeLiens& liste, const QPoint& ou) {
    menu.actions().first()->setEnabled(liste.grille()->row() > 0);
    menu.actions().last()->setEnabled(liste.grille()->rows() > 1);
    menu.popup(ou);
}

} // namespace velm
