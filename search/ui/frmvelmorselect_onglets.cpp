// How the controls of the search form are made and where they stand.
#include "core/cle.h"
#include "core/parametres.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "search/motscommencant.h"
#include "search/ui/bandecollections.h"
#include "search/ui/boitederniers.h"
#include "search/ui/champdate.h"
#include "search/ui/completionmots.h"
#include "search/ui/frmvelmorselect.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStringListModel>
#include <QTabBar>
#include <QTabWidget>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The form keeps its lines together where there is more room than they need.
constexpr QSize tailleutile(760, 620);

QString tableau(const QString& nom, int indice) {
    return u"%1(%2)"_s.arg(nom).arg(indice);
}

/// A row of controls with nothing around it.
QHBoxLayout* rangee(std::initializer_list<QWidget*> controles) {
    auto* disposition = new QHBoxLayout;
    disposition->setContentsMargins({});
    disposition->setSpacing(look::groupSpacing);
    for (QWidget* controle : controles)
        disposition->addWidget(controle);
    disposition->addStretch(1);
    return disposition;
}

QGridLayout* grilledepage() {
    auto* grille = new QGridLayout;
    grille->setContentsMargins({});
    grille->setHorizontalSpacing(look::spacing);
    grille->setVerticalSpacing(look::spacing);
    return grille;
}

QVBoxLayout* dispositiondepage(QWidget* page) {
    auto* disposition = new QVBoxLayout(page);
    disposition->setContentsMargins(look::windowMargin, look::groupSpacing, look::windowMargin, look::windowMargin);
    disposition->setSpacing(look::groupSpacing);
    return disposition;
}

} // namespace

void FrmVelmorSelect::construit() {
    auto* centre = new QWidget(this);
    auto* disposition = new QVBoxLayout(centre);
    disposition->setContentsMargins(look::windowMargin, look::windowMargin, look::windowMargin, look::spacing);
    disposition->setSpacing(look::windowMargin);
    disposition->addWidget(construitcollections());
    ongletrecherche_ = new QTabWidget(centre);
    ongletrecherche_->setObjectName(u"ongletrecherche"_s);
    ongletrecherche_->addTab(ongletrapide(), texte(2715));
    ongletrecherche_->addTab(ongletcriteres(), texte(2716));
    ongletrecherche_->addTab(ongletmots(), texte(7301));
    disposition->addWidget(ongletrecherche_, 1);
    ProgressBar_ = new QProgressBar(centre);
    ProgressBar_->setObjectName(u"ProgressBar"_s);
    ProgressBar_->setAccessibleName(texte(9461));
    ProgressBar_->setTextVisible(false);
    ProgressBar_->setFixedHeight(look::spacing);
    // Its place is kept: nothing moves when a search begins.
    QSizePolicy place = ProgressBar_->sizePolicy();
    place.setRetainSizeWhenHidden(true);
    ProgressBar_->setSizePolicy(place);
    disposition->addWidget(ProgressBar_);
    ordonne();
    // In the middle, as large as it can use.
    auto* dehors = new QGridLayout(this);
    dehors->setContentsMargins({});
    dehors->addWidget(centre, 0, 0);
    dehors->setColumnStretch(0, 1);
    dehors->setRowStretch(0, 1);
    centre->setMaximumSize(tailleutile.expandedTo(centre->sizeHint()));
}

/// The Tab key goes as one reads, and of the buttons below a tab to the searching one first.
void FrmVelmorSelect::ordonne() {
    const QStringList noms{
        u"toutsélect"_s,     u"toutdéselect"_s,    u"texterapide"_s,  u"combonombre"_s,      u"cmdokrapide"_s,
        u"annulerrapide"_s,  u"prefixe"_s,         u"texterech(0)"_s, u"motentier(0)"_s,     u"respectminmaj(0)"_s,
        u"conjonction"_s,    u"texterech(1)"_s,    u"motentier(1)"_s, u"respectminmaj(1)"_s, u"emplacement(0)"_s,
        u"emplacement(1)"_s, u"emplacement(2)"_s,  u"combomotcle"_s,  u"combotype"_s,        u"textejour"_s,
        u"textemois"_s,      u"texteannée"_s,      u"Option1"_s,      u"Option2"_s,          u"cmdok"_s,
        u"annuler"_s,        u"annulercriteres"_s, u"Textedico"_s,    u"checkandordico"_s,   u"Combonombredico"_s,
        u"cmdokdico"_s,      u"annulerdico"_s,     u"resultat"_s};
    QWidget* avant = nullptr;
    for (const QString& nom : noms) {
        auto* const celui = findChild<QWidget*>(nom);
        if (avant)
            setTabOrder(avant, celui);
        avant = celui;
        if (nom == u"toutdéselect") {
            setTabOrder(avant, ongletrecherche_->tabBar());
            avant = ongletrecherche_->tabBar();
        }
    }
}

QWidget* FrmVelmorSelect::construitcollections() {
    barre_cran_ = new Toolbar(this);
    barre_cran_->setObjectName(u"barre_cran"_s);
    barre_cran_->setAccessibleName(texte(9139));
    barre_cran_->setImages(icon);
    for (int collection = 0; collection < nombredecollections; ++collection) {
        const QString cle = typedindice(collection);
        barre_cran_->addButton(cle, Toolbar::Kind::Check, u"collection%1"_s.arg(collection));
        barre_cran_->setToolTip(cle, texte(10 + collection));
        barre_cran_->setValue(cle, true);
    }
    auto* toutes = bouton(u"toutsélect"_s, 2220);
    auto* aucune = bouton(u"toutdéselect"_s, 2221);
    connect(toutes, &QPushButton::clicked, this, [this] { presse(true); });
    connect(aucune, &QPushButton::clicked, this, [this] { presse(false); });
    return new BandeCollections(etiquette(texte(9139), barre_cran_), barre_cran_, {toutes, aucune}, this);
}

// ---- small makers

QLabel* FrmVelmorSelect::etiquette(const QString& libelle, QWidget* nomme) {
    auto* label = plainLabel(libelle, this);
    label->setBuddy(nomme);
    return label;
}

BoiteDerniers* FrmVelmorSelect::boite(BoiteTexte laquelle, const QString& nom, int numerotexte) {
    auto* nouvelle = new BoiteDerniers(nom, texte(9460), this);
    const QString libelle = texte(numerotexte).remove(u'&');
    nouvelle->setAccessibleName(libelle);
    nouvelle->lineEdit()->setAccessibleName(libelle);
    boites_.at(static_cast<std::size_t>(laquelle)) = nouvelle;
    return nouvelle;
}

QComboBox* FrmVelmorSelect::liste(const QString& nom, int numerotexte, const QStringList& items) {
    auto* nouvelle = new QComboBox(this);
    nouvelle->setObjectName(nom);
    nouvelle->setAccessibleName(texte(numerotexte).remove(u'&'));
    nouvelle->addItems(items);
    return nouvelle;
}

QCheckBox* FrmVelmorSelect::coche(const QString& nom, int numerotexte) {
    auto* nouvelle = new QCheckBox(texte(numerotexte), this);
    nouvelle->setObjectName(nom);
    return nouvelle;
}

QPushButton* FrmVelmorSelect::bouton(const QString& nom, int numerotexte) {
    auto* nouveau = new QPushButton(texte(numerotexte), this);
    nouveau->setObjectName(nom);
    nouveau->setAutoDefault(true); // the Return key presses the one that has the focus
    return nouveau;
}

ChampDate* FrmVelmorSelect::champdate(const QString& nom, int numerotexte, int chiffres) {
    auto* nouveau = new ChampDate(this);
    nouveau->setObjectName(nom);
    nouveau->setAccessibleName(texte(numerotexte).remove(u'&'));
    nouveau->setFixedWidth(nouveau->fontMetrics().horizontalAdvance(QString(chiffres, u'0')) + 3 * look::spacing);
    return nouveau;
}

void FrmVelmorSelect::ajouteboutons(QVBoxLayout& page, Onglet onglet, const QString& chercher, const QString& annuler,
                                    QWidget* gauche) {
    QPushButton*& lancer = lancer_.at(static_cast<std::size_t>(onglet));
    lancer = bouton(chercher, 1124);
    lancer->setDefault(true);
    // As wide for either of its captions.
    const int chercheur = lancer->sizeHint().width();
    lancer->setText(texte(2145));
    lancer->setMinimumWidth(std::max(chercheur, lancer->sizeHint().width()));
    auto* fin = bouton(annuler, 1118);
    connect(fin, &QPushButton::clicked, this, [this] { formulaire_.annuler(); });
    auto* ligne = new QHBoxLayout;
    ligne->setContentsMargins({});
    ligne->setSpacing(look::spacing);
    if (gauche)
        ligne->addWidget(gauche);
    ligne->addStretch(1);
    ligne->addWidget(lancer);
    ligne->addWidget(fin);
    page.addLayout(ligne);
}

// ---- the tabs

QWidget* FrmVelmorSelect::ongletrapide() {
    auto* page = new QWidget;
    auto* grille = grilledepage();
    auto* texterapide = boite(BoiteTexte::Rapide, u"texterapide"_s, 2121);
    combonombre_ = liste(u"combonombre"_s, 2717, {u"50"_s, u"100"_s, texte(2718)});
    auto* libelrapide = etiquette(texte(2121), texterapide);
    libelrapide->setObjectName(u"libelrapide"_s);
    auto* libelnombre = etiquette(texte(2717), combonombre_);
    libelnombre->setObjectName(u"libelnombre"_s);
    grille->addWidget(libelrapide, 0, 0);
    grille->addWidget(texterapide, 0, 1);
    grille->addWidget(libelnombre, 1, 0);
    grille->addWidget(combonombre_, 1, 1, Qt::AlignLeft);
    grille->setColumnStretch(1, 1);
    auto* disposition = dispositiondepage(page);
    disposition->addLayout(grille);
    disposition->addStretch(1);
    ajouteboutons(*disposition, Onglet::Rapide, u"cmdokrapide"_s, u"annulerrapide"_s);
    return page;
}

QWidget* FrmVelmorSelect::ongletcriteres() {
    auto* page = new QWidget;
    auto* grille = grilledepage();
    ajoutetextes(*grille);
    ajoutefiche(*grille);
    auto* disposition = dispositiondepage(page);
    disposition->addLayout(grille);
    disposition->addStretch(1);
    auto* effacer = bouton(u"annulercriteres"_s, 2144);
    connect(effacer, &QPushButton::clicked, this, [this] { formulaire_.annulercriteres(); });
    ajouteboutons(*disposition, Onglet::Criteres, u"cmdok"_s, u"annuler"_s, effacer);
    return page;
}

/// The two texts with what they must be, and where they are looked for.
void FrmVelmorSelect::ajoutetextes(QGridLayout& grille) {
    prefixe_ = liste(u"prefixe"_s, 9456, {u" "_s, texte(1501)});
    conjonction_ = liste(u"conjonction"_s, 9457, formulaire_.items().conjonction);
    constexpr std::array boites{BoiteTexte::Premier, BoiteTexte::Second};
    for (int rang = 0; rang < 2; ++rang) {
        const auto i = static_cast<std::size_t>(rang);
        auto* texterech = boite(boites.at(i), tableau(u"texterech"_s, rang), 9136 + rang);
        motentier_.at(i) = coche(tableau(u"motentier"_s, rang), 1731);
        respectminmaj_.at(i) = coche(tableau(u"respectminmaj"_s, rang), 1730);
        QComboBox* lien = rang == 0 ? prefixe_ : conjonction_;
        lien->setToolTip(plainTip(lien->accessibleName()));
        grille.addWidget(etiquette(texte(9136 + rang), texterech), 2 * rang, 0);
        grille.addWidget(lien, 2 * rang, 1);
        grille.addWidget(texterech, 2 * rang, 2);
        grille.addLayout(rangee({motentier_.at(i), respectminmaj_.at(i)}), 2 * rang + 1, 2);
    }
    constexpr std::array places{300, 2121, 1409};
    for (std::size_t i = 0; i < emplacement_.size(); ++i)
        emplacement_.at(i) = coche(tableau(u"emplacement"_s, static_cast<int>(i)), places.at(i));
    grille.addWidget(etiquette(texte(9138), emplacement_.front()), 4, 0);
    grille.addLayout(rangee({emplacement_[0], emplacement_[1], emplacement_[2]}), 4, 1, 1, 2);
    grille.setColumnStretch(2, 1);
}

/// What the document's own fields must be, and the range of the search.
void FrmVelmorSelect::ajoutefiche(QGridLayout& grille) {
    combomotcle_ = liste(u"combomotcle"_s, 9130);
    combomotcle_->setModel(new QStringListModel(combomotcle_));
    // Keywords may be many, and long.
    auto* vue = new QListView(combomotcle_);
    vue->setUniformItemSizes(true);
    combomotcle_->setView(vue);
    combotype_ = liste(u"combotype"_s, 9131, formulaire_.items().combotype);
    for (QComboBox* celle : {combomotcle_, combotype_}) {
        celle->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        celle->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }
    numerotype_ = new QListWidget(this);
    numerotype_->setObjectName(u"numerotype"_s);
    numerotype_->addItems(formulaire_.types().numerotype);
    numerotype_->hide();

    textejour_ = champdate(u"textejour"_s, 9133, 2);
    textejour_->valide = &validejour;
    textemois_ = champdate(u"textemois"_s, 9134, 2);
    textemois_->valide = &validemois;
    texteannee_ = champdate(u"texteannée"_s, 9135, 4);
    texteannee_->complete = &valideannee;
    texteannee_->touche = &touchedelannee;
    auto* date = new QHBoxLayout;
    date->setSpacing(look::spacing);
    for (const auto& [champ, numero] :
         {std::pair(textejour_, 9133), std::pair(textemois_, 9134), std::pair(texteannee_, 9135)}) {
        date->addWidget(etiquette(texte(numero), champ));
        date->addWidget(champ);
        date->addSpacing(look::spacing);
    }
    date->addStretch(1);

    Option1_ = new QRadioButton(texte(2710), this);
    Option1_->setObjectName(u"Option1"_s);
    Option1_->setChecked(true);
    Option2_ = new QRadioButton(texte(2711), this);
    Option2_->setObjectName(u"Option2"_s);
    auto* groupe = new QButtonGroup(this);
    groupe->addButton(Option1_);
    groupe->addButton(Option2_);

    int rang = 5;
    grille.setRowMinimumHeight(rang++, look::spacing);
    grille.addWidget(etiquette(texte(9130), combomotcle_), rang, 0);
    grille.addWidget(combomotcle_, rang++, 1, 1, 2);
    grille.addWidget(etiquette(texte(9131), combotype_), rang, 0);
    grille.addWidget(combotype_, rang++, 1, 1, 2);
    grille.addWidget(etiquette(texte(9132), textejour_), rang, 0);
    grille.addLayout(date, rang++, 1, 1, 2);
    grille.setRowMinimumHeight(rang++, look::spacing);
    grille.addWidget(etiquette(texte(9140), Option1_), rang, 0);
    grille.addLayout(rangee({Option1_, Option2_}), rang, 1, 1, 2);
}

QWidget* FrmVelmorSelect::ongletmots() {
    auto* page = new QWidget;
    auto* grille = grilledepage();
    auto* Textedico = boite(BoiteTexte::Mots, u"Textedico"_s, 7500);
    completion_ = new CompletionMots(
        Textedico->lineEdit(),
        [this](const QString& debut, int nombre) { return motscommencant(corpus_, debut, nombre); }, separateursmots(),
        texte(9459));
    checkandordico_ = coche(u"checkandordico"_s, 7304);
    Combonombredico_ = liste(u"Combonombredico"_s, 2717, {u"50"_s, u"100"_s, texte(2718)});
    resultat_ = new QListWidget(this);
    resultat_->setObjectName(u"resultat"_s);
    resultat_->setAccessibleName(texte(9458));
    resultat_->setToolTip(plainTip(texte(9458)));
    resultat_->setUniformItemSizes(true);
    auto* libeldico = etiquette(texte(7500) + u" :"_s, Textedico);
    libeldico->setObjectName(u"libeldico"_s);
    auto* libelnombredico = etiquette(texte(2717), Combonombredico_);
    libelnombredico->setObjectName(u"libelnombredico"_s);
    auto* messagedico = etiquette(texte(7305), nullptr);
    messagedico->setObjectName(u"messagedico"_s);
    messagedico->setWordWrap(true);
    messagedico->setForegroundRole(QPalette::PlaceholderText);
    grille->addWidget(libeldico, 0, 0);
    grille->addWidget(Textedico, 0, 1);
    grille->addWidget(messagedico, 1, 1);
    grille->addWidget(checkandordico_, 2, 1);
    grille->addWidget(libelnombredico, 3, 0);
    grille->addWidget(Combonombredico_, 3, 1, Qt::AlignLeft);
    grille->setColumnStretch(1, 1);
    auto* disposition = dispositiondepage(page);
    disposition->addLayout(grille);
    disposition->addWidget(resultat_, 1);
    ajouteboutons(*disposition, Onglet::Mots, u"cmdokdico"_s, u"annulerdico"_s);
    return page;
}

} // namespace velm
