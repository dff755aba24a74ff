#include "document_support.h"

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

QByteArray rtfde(QStringView texte) {
    QByteArray rtf("{\\rtf1\\ansi ");
    for (const QChar c : texte) {
        if (c == u'\n')
            rtf += "\\par ";
        else if (c == u'\t')
            rtf += "\\tab ";
        else if (c == u'{' || c == u'}' || c == u'\\')
            rtf += QByteArray("\\") + c.toLatin1();
        else if (c.unicode() < 128)
            rtf += c.toLatin1();
        else
            rtf += "\\u" + QByteArray::number(c.unicode()) + "?";
    }
    return rtf + "}";
}

Style styled(const QString& nom, int numero, bool caractere) {
    Style style;
    style.nom = nom;
    style.type = caractere;
    style.nomdelafonte = u"Fonte%1"_s.arg(numero);
    style.tailledelafonte = 10 + numero;
    style.gras = numero % 2 != 0;
    style.italique = numero % 3 != 0;
    style.souligne = numero % 4 != 0;
    style.barre = numero % 5 == 0;
    style.exposant = 2 * numero;
    style.couleur = 1000 + numero;
    if (caractere)
        return style;
    style.retraitgauche = 7 * numero;
    style.retraitdroit = 100 * numero;
    style.alignement = numero % 3;
    style.retrait1ligne = 30 * numero;
    style.indentpuce = 11 * numero;
    return style;
}

TableStyles stylesdessai() {
    TableStyles table;
    table.styles[0] = styled(u"a"_s, 1);
    table.styles[1] = styled(u"c"_s, 2, true);
    table.styles[3] = styled(u"puce"_s, 3);
    table.styles[3].puce = true;
    table.styles[4] = styled(u"tab"_s, 4);
    table.styles[4].tabulations = u"00567 1134 1701"_s;
    table.styles[5] = styled(u"Suite"_s, 5);
    table.styles[6] = styled(u"Condense"_s, 6);
    table.styles[7] = styled(u"cachee"_s, 7);
    table.styles[8] = styled(u"b"_s, 8);
    table.styles[9] = styled(u"Marque"_s, 9, true);
    table.stylesuite = u"Suite"_s;
    table.stylecondense = u"Condense"_s;
    table.stylemarque = u"Marque"_s;
    table.ajoutecondense(u"cachee"_s);
    return table;
}

void Essai::charge(const QString& texte) {
    formulaire.controle.setTextRtf(rtfde(texte));
}

QString Essai::passe(const QString& texte, bool abc) {
    charge(texte);
    chargecontenu(formulaire, abc, {styles, source, sablier, bornes});
    return formulaire.controle.text().replace(u"\r\n"_s, u"\n"_s);
}

const CharFormat& Essai::caractere(qsizetype position) const {
    return formulaire.controle.richText().charFormatAt(position);
}

const ParaFormat& Essai::paragraphe(qsizetype position) const {
    return formulaire.controle.richText().paraFormatAt(position);
}

QStringList Essai::liens() const {
    const ListesLiens& l = formulaire.liens;
    QStringList rangs;
    const auto ajoute = [&](QChar genre, const ListePositions& debuts, const ListePositions& fins,
                            const QStringList& cibles, const QStringList& montres) {
        for (qsizetype i = 0; i < debuts.nombre(); ++i)
            rangs += u"%1 %2-%3 %4 %5"_s.arg(genre)
                         .arg(debuts.texte(i), fins.texte(i), cibles.value(i), montres.value(i))
                         .trimmed();
    };
    ajoute(u'L', l.Listestarthyperlien, l.Listeendhyperlien, l.Listehyperlien, l.ListeValeurHyperLien);
    ajoute(u'U', l.ListeStartUrl, l.ListeEndUrl, l.ListeUrl, {});
    ajoute(u'E', l.ListeStartEmail, l.ListeEndEmail, l.ListeEmail, {});
    return rangs;
}

} // namespace velm::test
