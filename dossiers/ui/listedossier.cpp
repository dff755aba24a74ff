#include "dossiers/ui/listedossier.h"

#include "core/langue.h"
#include "dossiers/cleelement.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/list/listdelegate.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"

#include <QPainter>

#include <array>
#include <utility>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

struct VueDeListe {
    QStringView bouton;
    ListArrangement vue;
    Texte texte;
};
constexpr std::array vuesdeliste{VueDeListe{u"Liste", ListArrangement::List, Texte::DossiersVueListe},
                                 VueDeListe{u"LargesIcones", ListArrangement::LargeIcons, Texte::DossiersGrandesIcones},
                                 VueDeListe{u"SmallIcones", ListArrangement::SmallIcons, Texte::DossiersPetitesIcones}};

QIcon imagedecollection(const QString& code) {
    const int indice = indicedetype(code);
    return typedindice(indice) == code ? icon(u"collection%1"_s.arg(indice)) : icon(u"document"_s);
}

} // namespace

ListeDossier::ListeDossier(Corpus& corpus, Libelles texte, QWidget* parent)
    : ListView(parent), corpus_(corpus), texte_(std::move(texte)) {
    setObjectName(u"contenudossier"_s);
    setAccessibleName(texte_(Texte::DossiersContenu));
    setImages(imagedecollection);
    setFaint([this](const QString& cle) { return absent(cle); });
    vide_ = remplace(texte_(Texte::DossierVide),
                     {texte_(Texte::MenuRangerDansUnDossier).remove(u'&'), texte_(Texte::MenuFichier).remove(u'&')});
    setTips([this](int index) { return infobulle(index); });
}

void ListeDossier::relie(Toolbar& barre) {
    for (const VueDeListe& vue : vuesdeliste) {
        const QString bouton = vue.bouton.toString();
        barre.addButton(bouton, Toolbar::Kind::Group, bouton);
        barre.setToolTip(bouton, texte_(vue.texte));
        barre.setValue(bouton, vue.vue == arrangement());
    }
    connect(&barre, &Toolbar::buttonClicked, this, [this, &barre](const QString& bouton) {
        for (const VueDeListe& vue : vuesdeliste) {
            barre.setValue(vue.bouton.toString(), vue.bouton == bouton);
            if (vue.bouton == bouton)
                setArrangement(vue.vue);
        }
    });
}

bool ListeDossier::absent(const QString& cle) const {
    const Cle document = documentdelacle(cle);
    const auto su = absents_.constFind(document);
    return su != absents_.constEnd() ? *su : *absents_.insert(document, corpus_.rangee(document) == nullptr);
}

QString ListeDossier::infobulle(int index) const {
    const QString& titre = items().text(index);
    const QString suite = texte_(Texte::AGlisserVersUnDossier);
    QStringList lignes{titre.isEmpty() ? suite : u'"' + titre + u"\" "_s + suite};
    const QString& cle = items().key(index);
    const Cle document = documentdelacle(cle);
    const int indice = document.indice();
    if (typedindice(indice) == document.code)
        lignes << texte_(libelledefenetre(indice));
    if (absent(cle))
        lignes << texte_(Texte::DossiersDocumentAbsent);
    return lignes.join(u'\n');
}

/// An empty dossier says how something comes into it.
void ListeDossier::paintEvent(QPaintEvent* evenement) {
    ListView::paintEvent(evenement);
    if (items().count() != 0)
        return;
    QPainter peintre(viewport());
    peintre.setPen(ListDelegate::faintInk(palette()));
    const int marge = look::groupSpacing;
    peintre.drawText(viewport()->rect().adjusted(marge, marge, -marge, -marge),
                     int(Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap), vide_);
}

} // namespace velm
