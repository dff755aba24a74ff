#include "shell/sponsor.h"

#include "core/langue.h"
#include "core/texte.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"

#include <QDir>
#include <QImageReader>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace velm {

namespace {

using namespace Qt::Literals::StringLiterals;

/// What a window's frame may take of the screen around its contents.
constexpr QSize cadre(32, 64);

} // namespace

sponsor::sponsor(const Libelles& texte, const QString& fichier, QWidget* parent)
    : QDialog(parent), image_(plainLabel({}, this)) {
    setObjectName(u"sponsor"_s);
    setWindowTitle(texte(Texte::TitrePartenaires));
    setWindowModality(Qt::ApplicationModal);
    image_->setObjectName(u"Imagepartner"_s);
    image_->setAccessibleName(texte(Texte::TitrePartenaires));
    auto* disposition = new QVBoxLayout(this);
    disposition->setContentsMargins(0, 0, 0, 0);
    disposition->setSizeConstraint(QLayout::SetFixedSize);
    disposition->addWidget(image_);

    QImageReader lecteur(fichier, "bmp");
    const QImage image = lecteur.read();
    if (!image.isNull()) {
        place(image);
        return;
    }
    image_->setText(remplace(texte(Texte::ImagePasAffichee), {QDir::toNativeSeparators(fichier)}));
    image_->setWordWrap(true);
    image_->setMargin(look::groupSpacing);
    image_->setMinimumWidth(320);
}

void sponsor::place(const QImage& image) {
    const QSize libre = screen()->availableSize() - cadre;
    QSize taille = image.size();
    if (taille.width() > libre.width() || taille.height() > libre.height())
        taille.scale(libre, Qt::KeepAspectRatio);
    taille = taille.expandedTo(QSize(1, 1));
    const qreal densite = devicePixelRatioF();
    QPixmap montree = QPixmap::fromImage(
        taille == image.size() && densite == 1
            ? image
            : image.scaled((QSizeF(taille) * densite).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    montree.setDevicePixelRatio(densite);
    image_->setPixmap(montree);
    image_->setFixedSize(taille);
}

} // namespace velm
