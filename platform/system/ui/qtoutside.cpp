#include "platform/system/ui/qtoutside.h"

#include "platform/system/addresses.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include <memory>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

Navigateur::Handed hand(const std::optional<QUrl>& url) {
    if (!url)
        return Navigateur::Handed::Refused;
    return QDesktopServices::openUrl(*url) ? Navigateur::Handed::Yes : Navigateur::Handed::No;
}

} // namespace

Navigateur::Handed QtNavigateur::openUrl(const QString& address) {
    return hand(webUrl(address));
}

Navigateur::Handed QtNavigateur::mail(const QString& address) {
    return hand(mailUrl(address));
}

bool QtNavigateur::openFile(const QString& path) {
    return !path.isEmpty() && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void QtPressePapiers::pose(const ContenuPressePapiers& contenu) {
    auto data = std::make_unique<QMimeData>();
    if (!contenu.texte.isEmpty())
        data->setText(contenu.texte);
    if (!contenu.html.isEmpty())
        data->setHtml(contenu.html);
    if (!contenu.rtf.isEmpty()) {
        data->setData(u"text/rtf"_s, contenu.rtf);
        data->setData(u"application/rtf"_s, contenu.rtf);
    }
    // The clipboard takes the object over.
    QGuiApplication::clipboard()->setMimeData(data.release());
}

QString QtPressePapiers::texte() const {
    return QGuiApplication::clipboard()->text();
}

} // namespace velm
