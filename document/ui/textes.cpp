#include "document/ui/textes.h"

#include <QCloseEvent>
#include <QVBoxLayout>

namespace velm {

namespace {

/// Row of the link that covers a position, or -1.
qsizetype rangdulien(const ListePositions& debuts, const ListePositions& fins, qsizetype position) {
    for (qsizetype rang = 0; rang < debuts.nombre(); ++rang) {
        if (position >= debuts.valeur(rang) && position < fins.valeur(rang))
            return rang;
    }
    return -1;
}

} // namespace

Textes::Textes(int indice, const QString& libelle, QWidget* parent)
    : QWidget(parent), indice_(indice), vue_(new RichTextBox(this)) {
    setObjectName(QStringLiteral("Textes"));
    setWindowTitle(libelle);
    vue_->setObjectName(QStringLiteral("rtfRichTextBox1"));
    vue_->setAccessibleName(libelle);
    auto* disposition = new QVBoxLayout(this);
    disposition->setContentsMargins(0, 0, 0, 0);
    disposition->addWidget(vue_);
    setFocusProxy(vue_);
    connect(vue_, &RichTextBox::clicked, this, &Textes::suit);
}

void Textes::rafraichit() {
    relieliens();
    vue_->viewport()->update();
}

void Textes::relieliens() {
    std::vector<LinkRange> plages;
    const auto ajoute = [&](const ListePositions& debuts, const ListePositions& fins) {
        for (qsizetype rang = 0; rang < debuts.nombre(); ++rang)
            plages.push_back({debuts.valeur(rang), fins.valeur(rang)});
    };
    ajoute(listes_.Listestarthyperlien, listes_.Listeendhyperlien);
    ajoute(listes_.ListeStartUrl, listes_.ListeEndUrl);
    ajoute(listes_.ListeStartEmail, listes_.ListeEndEmail);
    vue_->setLinkRanges(plages);
}

void Textes::suit(qsizetype position) {
    qsizetype rang = rangdulien(listes_.Listestarthyperlien, listes_.Listeendhyperlien, position);
    if (rang >= 0) {
        emit liensuivi(listes_.Listehyperlien.value(rang), listes_.ListeValeurHyperLien.value(rang));
        return;
    }
    rang = rangdulien(listes_.ListeStartUrl, listes_.ListeEndUrl, position);
    if (rang >= 0) {
        emit adressesuivie(listes_.ListeUrl.value(rang));
        return;
    }
    rang = rangdulien(listes_.ListeStartEmail, listes_.ListeEndEmail, position);
    if (rang >= 0)
        emit couriersuivi(listes_.ListeEmail.value(rang));
}

void Textes::closeEvent(QCloseEvent* evenement) {
    emit ferme();
    QWidget::closeEvent(evenement);
}

} // namespace velm
