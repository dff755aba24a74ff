#include "platform/system/ui/qtoutside.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include <memory>

namespace velm {
namespace {

bool hand(const QUrl& url) {
    return url.isValid() && !url.isEmpty() && QDesktopServices::openUrl(url);
}

} // namespace

bool QtNavigateur::openUrl(const QString& address) {
    // An address without a scheme ("www.…") is taken as one of the web. A link in a document starts no local file.
    const QUrl url = QUrl::fromUserInput(address.trimmed());
    return !url.isLocalFile() && hand(url);
}

bool QtNavigateur::mail(const QString& address) {
    QString bare = address.trimmed();
    if (bare.startsWith(QStringLiteral("mailto:"), Qt::CaseInsensitive))
        bare.remove(0, 7);
    return !bare.isEmpty() && hand(QUrl(QStringLiteral("mailto:") + bare));
}

bool QtNavigateur::openFile(const QString& path) {
    return !path.isEmpty() && hand(QUrl::fromLocalFile(path));
}

void QtPressePapiers::pose(const ContenuPressePapiers& contenu) {
    auto data = std::make_unique<QMimeData>();
    data->setText(contenu.texte);
    if (!contenu.html.isEmpty())
        data->setHtml(contenu.html);
    if (!contenu.rtf.isEmpty()) {
        data->setData(QStringLiteral("text/rtf"), contenu.rtf);
        data->setData(QStringLiteral("application/rtf"), contenu.rtf);
    }
    // The clipboard takes the object over.
    QGuiApplication::clipboard()->setMimeData(data.release());
}

QString QtPressePapiers::texte() const {
    return QGuiApplication::clipboard()->text();
}

} // namespace velm
