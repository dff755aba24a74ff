#include "document/ui/zonetexte.h"

#include "core/cle.h"
#include "core/dates.h"
#include "core/tablereglages.h"
#include "core/texte.h"
#include "document/citation.h"
#include "document/ui/barretextes.h"
#include "document/ui/frmproperties.h"
#include "document/ui/listedeliens.h"
#include "document/ui/voletliens.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/plaintext.h"
#include "platform/widgets/text/richhtml.h"
#include "platform/widgets/text/richtextbox.h"

#include <QHelpEvent>
#include <QMenu>
#include <QToolTip>

namespace velm {

using namespace Qt::Literals::StringLiterals;

ZoneTexte::ZoneTexte(const Parties& parties, const ContexteTextes& contexte, QWidget* fenetre)
    : QObject(fenetre), parties_(parties), contexte_(contexte), fenetre_(fenetre), menu_(new QMenu(fenetre)),
      lecture_(std::make_unique<Lecture>(
          PartiesLecture{parties.vue.control(), *this, parties.barre, parties.volet.liens(), parties.volet.correlats()},
          contexte.lecture)) {
    construitmenu();
    connect(&vue(), &RichTextBox::clicked, this, [this](qsizetype position) { lecture_->suit(position); });
    connect(&vue(), &RichTextBox::linkHovered, this, [this](int lien) { emit cible(lecture_->cible(lien)); });
    vue().viewport()->installEventFilter(this);
    connect(&vue(), &RichTextBox::rightClicked, this, [this](qsizetype, const QPoint& ou) { montremenu(ou); });
}

ZoneTexte::~ZoneTexte() = default;

// ---- commands

void ZoneTexte::copie() {
    const RichTextControl& controle = vue().control();
    if (controle.length() == 0)
        return;
    const bool tout = controle.selLength() == 0;
    const qsizetype debut = tout ? 0 : controle.selStart();
    const qsizetype longueur = tout ? controle.length() : controle.selLength();
    contexte_.pressepapiers.pose({richPlain(controle.richText(), debut, longueur),
                                  richHtml(controle.richText(), debut, longueur),
                                  tout ? controle.textRtf() : controle.selRtf()});
}

QString ZoneTexte::reference(qsizetype debut, qsizetype longueur) const {
    const ContexteLecture& besoins = contexte_.lecture;
    const DocumentAffiche& document = lecture_->document();
    ElementsCitation elements;
    elements.article = articlescites(vue().control().text(), debut, longueur, besoins.texte);
    elements.titre = document.titre;
    elements.collection = besoins.libelle(indicedetype(lecture_->cle().code));
    elements.source = document.Source;
    elements.date = dateecrite(document.datetext, besoins.texte);
    elements.cle = lecture_->referencecourante();
    return citation(contexte_.reglages.lit(reglage::citation), elements);
}

void ZoneTexte::copieavecreference() {
    const RichTextControl& controle = vue().control();
    if (controle.length() == 0)
        return;
    const bool tout = controle.selLength() == 0;
    const qsizetype debut = tout ? 0 : controle.selStart();
    const qsizetype longueur = tout ? controle.length() : controle.selLength();
    RichText passage = controle.richText().copy(debut, longueur);
    const FormatId lettres = passage.intern(CharFormat());
    const FormatId paragraphe = passage.intern(ParaFormat());
    // A passage that ends inside of a paragraph has that paragraph's end before the line.
    if (!passage.text().endsWith(u"\r\n"))
        passage.append(u"\r\n", lettres, paragraphe);
    passage.append(reference(debut, longueur), lettres, paragraphe);
    contexte_.pressepapiers.pose(
        {richPlain(passage, 0, passage.length()), richHtml(passage, 0, passage.length()), writeRtf(passage)});
}

/// The window's own entry differs from the frame's command where nothing is selected: all of it goes as rich text
/// alone, and what takes plain text gets nothing.
void ZoneTexte::copiedelafenetre() {
    if (vue().selLength() > 0)
        copie();
    else
        contexte_.pressepapiers.pose({{}, {}, vue().control().textRtf()});
}

void ZoneTexte::toutselectionner() {
    vue().setSelStart(0);
    vue().setSelLength(vue().control().length());
    vue().setFocus();
}

bool ZoneTexte::peutranger() const {
    return contexte_.voisinage.dossiersouverts() && !lecture_->referencecourante().isEmpty();
}

void ZoneTexte::range() {
    const qsizetype longueur = vue().selLength();
    emit ranger(lecture_->referencecourante(), lecture_->titrecourant(), longueur > 0 ? vue().selStart() : 0, longueur);
}

void ZoneTexte::montreproprietes() {
    if (lecture_->referencecourante().isEmpty())
        return;
    const ContexteLecture& besoins = contexte_.lecture;
    contexte_.remplit([&] {
        frmproperties::montre(
            {besoins.corpus, contexte_.reglages, contexte_.parametres, besoins.sablier, besoins.texte, besoins.libelle},
            *lecture_, fenetre_->window());
    });
}

// ---- VueLecture

void ZoneTexte::changetitre(const QString& titre) {
    fenetre_->setWindowTitle(titre);
    vue().setAccessibleName(titre);
    emit arrive();
}

void ZoneTexte::activemenus() {
    emit menuschanges();
}

void ZoneTexte::rafraichit() {
    std::vector<LinkRange> plages;
    plages.reserve(static_cast<std::size_t>(lecture_->nombreliens()));
    for (qsizetype lien = 0; lien < lecture_->nombreliens(); ++lien) {
        const PlageLien plage = lecture_->plage(lien);
        plages.push_back({plage.debut, plage.fin});
    }
    vue().setLinkRanges(plages);
    vue().viewport()->update();
}

void ZoneTexte::revele(qsizetype position) {
    vue().reveal(position);
}

void ZoneTexte::montreoccurrences(const std::vector<Occurrence>& occurrences) {
    std::vector<HitRange> plages;
    plages.reserve(occurrences.size());
    for (const Occurrence& occurrence : occurrences)
        plages.push_back({occurrence.debut, occurrence.debut + occurrence.longueur});
    vue().setHits(HitKind::Words, std::move(plages));
}

void ZoneTexte::ditcible(const QString& texte) {
    emit cible(texte);
}

void ZoneTexte::dit(const QString& texte) {
    contexte_.voisinage.dit(texte);
}

// ---- tip

bool ZoneTexte::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() != QEvent::ToolTip)
        return QObject::eventFilter(objet, evenement);
    montretitre(static_cast<QHelpEvent*>(evenement)->globalPos());
    return true;
}

// Shows the title of the link under the pointer, until the pointer moves away from there.
void ZoneTexte::montretitre(const QPoint& ou) {
    constexpr int alentour = 12; // pixels
    QWidget* surface = vue().viewport();
    const QPoint ici = surface->mapFromGlobal(ou);
    const QRect autour(ici - QPoint(alentour, alentour), ici + QPoint(alentour, alentour));
    QToolTip::showText(ou, plainTip(lecture_->titrecible(vue().hoveredLink())), surface, autour);
}

// ---- pop-up menu

QAction* ZoneTexte::entree(QMenu& menu, const QString& nom, Texte texte, const QString& image) const {
    QAction* action = menu.addAction(image.isEmpty() ? QIcon() : icon(image), contexte_.texte(texte));
    action->setObjectName(nom);
    action->setEnabled(false);
    return action;
}

void ZoneTexte::construitmenu() {
    menu_->setObjectName(u"ContextMenu"_s);
    connect(entree(*menu_, u"MnuCopy"_s, Texte::DocumentCopier, u"Copier"_s), &QAction::triggered, this,
            &ZoneTexte::copiedelafenetre);
    connect(entree(*menu_, u"MnuSelectAll"_s, Texte::DocumentToutSelectionner, u"sélectionnertout"_s),
            &QAction::triggered, this, &ZoneTexte::toutselectionner);
    connect(entree(*menu_, u"MnuCopyReference"_s, Texte::DocumentCopierReference, u"copierréférence"_s),
            &QAction::triggered, this, &ZoneTexte::copieavecreference);
    menu_->addSeparator();
    const auto sort = [this](QAction* entree, Ordre ordre) {
        connect(entree, &QAction::triggered, this, [this, ordre] { emit sortie(ordre); });
    };
    sort(entree(*menu_, u"MnuPrint"_s, Texte::DocumentImprimer, u"Imprimer"_s), Ordre::Imprimer);
    QMenu* envoi = menu_->addMenu(icon(u"envoyer"_s), contexte_.texte(Texte::DocumentEnvoyer));
    envoi->setObjectName(u"MnuSendfile"_s);
    sort(entree(*envoi, u"MnuSend(0)"_s, Texte::DocumentEnvoyerTexte, u"texte"_s), Ordre::EnvoyerTexte);
    sort(entree(*envoi, u"MnuSend(1)"_s, Texte::DocumentEnvoyerPieceJointe, u"piècejointe"_s), Ordre::EnvoyerPiece);
    connect(entree(*menu_, u"MnuStore"_s, Texte::DocumentRanger, u"rangerdocument"_s), &QAction::triggered, this,
            &ZoneTexte::range);
    menu_->addSeparator();
    construitentreesdeslistes();
}

void ZoneTexte::construitentreesdeslistes() {
    const auto ajoute = [this](ListeDeLiens& liste, const QString& nom, Texte texte) {
        QAction* action = entree(*menu_, nom, texte, {});
        action->setEnabled(true);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, &liste] { emit bascule(&liste); });
    };
    ajoute(parties_.volet.liens(), u"MnuOuvrirLiens"_s, Texte::DocumentListeDesCites);
    ajoute(parties_.volet.correlats(), u"MnuOuvrirCorrélats"_s, Texte::DocumentListeDesCitants);
}

void ZoneTexte::montremenu(const QPoint& ou) {
    const auto celle = [this](const QString& nom) { return menu_->findChild<QAction*>(nom); };
    const bool possible = lecture_->menusactifs() && vue().control().length() > 0;
    celle(u"MnuCopy"_s)->setEnabled(possible);
    celle(u"MnuCopyReference"_s)->setEnabled(possible);
    celle(u"MnuSelectAll"_s)->setEnabled(possible);
    for (const QString& nom : {u"MnuPrint"_s, u"MnuSend(0)"_s, u"MnuSend(1)"_s})
        celle(nom)->setEnabled(lecture_->menusactifs());
    menu_->findChild<QMenu*>(u"MnuSendfile"_s)->setEnabled(lecture_->menusactifs());
    celle(u"MnuStore"_s)->setEnabled(peutranger());
    celle(u"MnuOuvrirLiens"_s)->setChecked(parties_.volet.liens().ouverte());
    celle(u"MnuOuvrirCorrélats"_s)->setChecked(parties_.volet.correlats().ouverte());
    menu_->popup(ou);
}

} // namespace velm
