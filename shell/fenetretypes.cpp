#include "shell/fenetretypes.h"

#include "core/langue.h"
#include "core/nombres.h"
#include "platform/widgets/frame/statusbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/grid/tablemime.h"
#include "platform/widgets/look/look.h"
#include "shell/passagelignes.h"

#include <QApplication>
#include <QClipboard>
#include <QPointer>
#include <QProgressBar>
#include <QShortcut>

#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString boutontoutes = u"toutsélect"_s;
const QString boutonaucune = u"toutdéselect"_s;

constexpr int avantdeceder = 100;    ///< milliseconds that a list may take before the window answers again
constexpr int tranchedetravail = 12; ///< and from then on at once
constexpr int avantleprogres = 300;  ///< what takes longer shows how far it is
constexpr int pasduprogres = 100;
constexpr int dunseulcoup = 2000; ///< rows that are copied before anybody could see it

QString bulledutype(int collection, const Corpus& corpus, const Libelles& texte) {
    const qint64 nombre = corpus.connecte() ? corpus.nombrededocuments(typedindice(collection)) : 0;
    const QString compte =
        remplace(texte(nombre > 1 ? Texte::CompteDocuments : Texte::CompteUnDocument), {nombreecrit(nombre, texte)});
    return remplace(texte(Texte::NomEtNombre), {texte(libelledefenetre(collection)), compte});
}

/// The bar of the collections.
void garnittypes(Toolbar& barre, const Corpus& corpus, const Libelles& texte) {
    barre.setAccessibleName(texte(Texte::CollectionsDeLaListe));
    for (int collection = 0; collection < nombredecollections; ++collection) {
        const QString code = typedindice(collection);
        barre.addButton(code, Toolbar::Kind::Check, u"collection%1"_s.arg(collection));
        barre.setToolTip(code, bulledutype(collection, corpus, texte));
        barre.setButtonFaint(code, corpus.connecte() && corpus.nombrededocuments(code) == 0);
    }
    barre.addButton(u"barretypes"_s, Toolbar::Kind::Separator);
    for (const auto& [bouton, image, libelle] :
         {std::tuple(boutontoutes, u"collectionstoutes"_s, Texte::ToutSelectionner),
          std::tuple(boutonaucune, u"collectionsaucune"_s, Texte::ToutDeselectionner)}) {
        barre.addButton(bouton, Toolbar::Kind::Plain, image);
        barre.setToolTip(bouton,
                         remplace(texte(Texte::LigneEtiquetee), {texte(Texte::CollectionsDeLaListe), texte(libelle)}));
    }
    barre.addButton(u"barretypeflex"_s, Toolbar::Kind::Separator);
}

} // namespace

DescriptionListe FenetreTypes::avectypes(const DescriptionTypes& description, const ContexteTypes& contexte) {
    DescriptionListe liste = description.liste;
    liste.regroupee = true;
    liste.garnit = [&contexte, garnit = liste.garnit](Toolbar& barre) {
        garnittypes(barre, contexte.corpus, contexte.liste.texte);
        if (garnit)
            garnit(barre);
    };
    return liste;
}

FenetreTypes::FenetreTypes(const DescriptionTypes& description, const ContexteTypes& contexte, QWidget* parent)
    : FenetreListe(avectypes(description, contexte), contexte.liste, parent), corpus_(contexte.corpus),
      statut_(description.statut), types_(TypesChoisis::lit(contexte.liste.reglages.lit(description.statut))),
      progres_(new QProgressBar(this)), echappe_(new QShortcut(QKeySequence(Qt::Key_Escape), this)) {
    construitprogres();
    echappe_->setContext(Qt::WidgetWithChildrenShortcut);
    echappe_->setEnabled(false);
    connect(echappe_, &QShortcut::activated, this, &FenetreTypes::laisse);
    montretypes();
    relietypes();
    tranches_.setInterval(0);
    connect(&tranches_, &QTimer::timeout, this, &FenetreTypes::tranche);
}

FenetreTypes::~FenetreTypes() {
    parcours_.reset();
    laisse();
}

void FenetreTypes::construitprogres() {
    progres_->setObjectName(u"ProgressBar"_s);
    progres_->setAccessibleName(contexte().texte(Texte::AvancementDeLaListe));
    progres_->setRange(0, pasduprogres);
    progres_->setTextVisible(false);
    progres_->setFixedSize(120, 8);
    etat().addPermanentWidget(progres_);
    progres_->hide();
}

// ---- the collections

void FenetreTypes::relietypes() {
    connect(&barre(), &Toolbar::buttonClicked, this, &FenetreTypes::presse);
}

void FenetreTypes::presse(const QString& bouton) {
    const auto indice = codestypes.indexOf(bouton);
    if (bouton == boutontoutes || bouton == boutonaucune) {
        for (int collection = 0; collection < nombredecollections; ++collection)
            types_.change(collection, bouton == boutontoutes);
        montretypes();
    } else if (bouton.size() == 2 && indice >= 0) {
        types_.change(indicedetype(bouton), barre().value(bouton));
    } else {
        return;
    }
    reselect();
}

void FenetreTypes::montretypes() {
    for (int collection = 0; collection < nombredecollections; ++collection)
        barre().setValue(typedindice(collection), types_.enfonce(collection));
}

void FenetreTypes::ecritreglages() {
    FenetreListe::ecritreglages();
    Reglages& reglages = contexte().reglages;
    if (reglages.lit(statut_) != types_.statut())
        reglages.ecrit(statut_, types_.statut());
}

/// The base may be closed from here on.
void FenetreTypes::decharge() {
    laisse();
    ensuite_ = {};
    source_.reset();
    FenetreListe::decharge();
}

// ---- what is done in slices

SourceEnTours* FenetreTypes::entours(SourceDocuments* source) const {
    return dynamic_cast<SourceEnTours*>(source);
}

void FenetreTypes::prend(std::unique_ptr<SourceDocuments> source) {
    laisse();
    source_ = std::move(source);
    SourceEnTours* longue = entours(source_.get());
    if (longue)
        commence(longue->remplissage(), [this] { triealors(); });
    else
        montresource();
}

/// The new rows stand as the list does before they are seen.
void FenetreTypes::triealors() {
    avantordre(*source_);
    const GrilleDocuments::Tri tri = documents().tri();
    SourceEnTours* longue = entours(source_.get());
    const int colonne = tri.colonne < 0 ? -1 : documents().colonnesource(tri.colonne);
    if (auto travail = longue && colonne >= 0 ? longue->tri(colonne, tri.descendant) : nullptr)
        commence(std::move(travail), [this] { montresource(); });
    else
        montresource();
}

void FenetreTypes::montresource() {
    laisse();
    remplit([this] { return std::move(source_); });
    rempli();
}

void FenetreTypes::trie(int place) {
    // Rows that are on their way come sorted; then this can be asked for again.
    if (source_)
        return;
    laisse();
    auto* longue = dynamic_cast<SourceEnTours*>(flex().source());
    const int champ = flex().colData(place);
    const bool descendant = flex().sortMark(place) == FlexGrid::Mark::Ascending;
    auto travail = longue ? longue->tri(documents().colonnesource(place), descendant) : nullptr;
    if (!travail)
        return FenetreListe::trie(place);
    commence(std::move(travail), [this, champ] {
        // Meanwhile the column may have been dragged elsewhere.
        for (int ici = 0; ici < flex().cols(); ++ici) {
            if (flex().colData(ici) == champ)
                return FenetreListe::trie(ici);
        }
    });
}

void FenetreTypes::commence(std::unique_ptr<Ouvrage> ouvrage, std::function<void()> suite) {
    ouvrage_ = std::move(ouvrage);
    suite_ = std::move(suite);
    if (!depuis_.isValid())
        depuis_.start();
    tranches_.start();
    tranche();
}

/// The first slice is longer: a list that is there by then needs no second one.
void FenetreTypes::tranche() {
    if (!ouvrage_)
        return;
    QElapsedTimer temps;
    temps.start();
    const bool premiere = depuis_.elapsed() < avantdeceder;
    const qint64 duree = premiere ? avantdeceder : tranchedetravail;
    bool fin = false;
    const bool suffit = travaille(
        [&] {
            while (!fin && temps.elapsed() < duree)
                fin = ouvrage_->avance();
        },
        premiere, parcours_ ? Texte::LignesSansMemoire : Texte::ListeIncomplete);
    if (!suffit) {
        laisse();
        source_.reset();
    } else if (fin) {
        fini();
    } else {
        if (parcours_ && !std::exchange(parcoursdit_, true))
            ditetat(contexte().texte(*parcours_));
        progres_->setVisible(depuis_.hasExpired(avantleprogres));
        progres_->setValue(static_cast<int>(ouvrage_->part() * pasduprogres));
    }
}

void FenetreTypes::fini() {
    const auto suite = std::exchange(suite_, {});
    ouvrage_.reset();
    if (std::exchange(parcours_, {}))
        laisse();
    // What is done behind the last row may let events through, and one of them close the window.
    const QPointer<FenetreTypes> moi(this);
    suite();
    if (!moi || ouvrage_)
        return;
    laisse();
    if (const auto ensuite = std::exchange(ensuite_, {}))
        ensuite();
}

void FenetreTypes::laisse() {
    tranches_.stop();
    ouvrage_.reset();
    suite_ = {};
    depuis_.invalidate();
    progres_->hide();
    echappe_->setEnabled(false);
    if (std::exchange(parcours_, {}))
        ditetat(contexte().texte(Texte::LignesArretees));
}

// ---- what is done with very many rows

bool FenetreTypes::attend(void (FenetreTypes::*acte)()) {
    if (!ouvrage_ || parcours_)
        return false;
    ensuite_ = [this, acte] { (this->*acte)(); };
    return true;
}

void FenetreTypes::parcourt(std::pair<int, int> lignes, std::function<void(int ligne)> chaque, Texte pendant,
                            std::function<void()> suite) {
    laisse();
    parcours_ = pendant;
    parcoursdit_ = false;
    echappe_->setEnabled(true);
    commence(std::make_unique<PassageLignes>(lignes.first, lignes.second, std::move(chaque)), std::move(suite));
}

/// The texts of a row, in the order in which the columns stand now.
std::function<QStringList(int ligne)> FenetreTypes::cellules(bool cachees) const {
    std::vector<int> colonnes;
    for (int place = 0; place < flex().cols(); ++place) {
        if (cachees || flex().colWidth(place) > 0)
            colonnes.push_back(documents().colonnesource(place));
    }
    return [source = flex().source(), colonnes](int ligne) {
        QStringList textes;
        for (const int colonne : colonnes)
            textes << source->text(ligne - 1, colonne);
        return textes;
    };
}

void FenetreTypes::copie() {
    if (flex().rows() - 1 <= dunseulcoup)
        return FenetreListe::copie();
    if (attend(&FenetreTypes::copie))
        return;
    flex().selectAll();
    auto tout = std::make_shared<QString>();
    const auto ligne = [tout, cellules = cellules(true)](int ici) {
        *tout += (ici > 1 ? u"\r"_s : QString()) + cellules(ici).join(u'\t');
    };
    parcourt({1, flex().rows() - 1}, ligne, Texte::LignesEnCopie, [this, tout] {
        copiees(flex().rows() - 1, [&] { contexte().pressepapiers.pose({*tout, {}, {}}); });
    });
}

void FenetreTypes::copielignes() {
    const auto choisies = flex().selectedRows();
    if (choisies.second - choisies.first < dunseulcoup)
        return FenetreListe::copielignes();
    if (attend(&FenetreTypes::copielignes))
        return;
    auto table = std::make_shared<TableMime>();
    const auto ligne = [table, cellules = cellules(false)](int ici) { table->add(cellules(ici)); };
    parcourt(choisies, ligne, Texte::LignesEnCopie, [this, table] {
        copiees(table->rows(), [&] { QApplication::clipboard()->setMimeData(table->take().release()); });
    });
}

void FenetreTypes::copiees(int lignes, const std::function<void()>& pose) {
    const Libelles& texte = contexte().texte;
    const bool suffit = travaille(pose, true, Texte::LignesSansMemoire);
    if (parcoursdit_)
        ditetat(suffit ? remplace(texte(Texte::LignesCopiees), {nombreecrit(lignes, texte)})
                       : texte(Texte::LignesArretees));
}

void FenetreTypes::selectionne() {
    const auto choisies = flex().selectedRows();
    if (!contexte().selectionne || choisies.second - choisies.first < dunseulcoup)
        return FenetreListe::selectionne();
    if (attend(&FenetreTypes::selectionne))
        return;
    auto cles = std::make_shared<std::vector<Cle>>();
    const auto ligne = [this, cles](int ici) {
        if (Cle cle = documents().cle(ici); !cle.vide())
            cles->push_back(std::move(cle));
    };
    parcourt(choisies, ligne, Texte::LignesEnLecture, [this, cles] {
        ditlignes();
        // Its turns may close this window.
        const auto selectionne = contexte().selectionne;
        selectionne(*cles);
    });
}

} // namespace velm
