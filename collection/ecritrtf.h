#pragma once
// Rich text written directly, in seven bits.
#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>

namespace velm {

/// A growing rich text. Its memory is kept from document to document.
class EcritRtf {
public:
    void vide() { taille_ = 0; }
    QByteArray resultat() const { return tampon_.first(taille_); }

    /// Control words as they are; the caller ends them with a blank where text may follow.
    void commande(QByteArrayView mots);
    void nombre(QByteArrayView mot, int valeur);
    /// Text with everything escaped that rich text needs: Windows-1252 as \'hh, the rest as \uN.
    void texte(QStringView texte);

private:
    char* place(qsizetype octets);
    QByteArray tampon_;
    qsizetype taille_ = 0;
};

/// Any rich text in seven bits: raw bytes above 127 become \'hh. Nothing when binary data stands in it.
QByteArray septbits(const QByteArray& rtf);

} // namespace velm
