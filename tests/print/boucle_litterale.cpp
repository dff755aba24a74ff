#include "boucle_litterale.h"

#include <cmath>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

/// A 16-bit value.
int BoucleLitterale::entier(qint64 valeur) {
    if (valeur > 32767 || valeur < -32768)
        throw Debordement();
    return static_cast<int>(valeur);
}

void BoucleLitterale::imprimerichtext(const RichTextControl& rtf, qsizetype debut, qsizetype fin) {
    const qint64 left = D.margegauche - Printer.sheet().offsetX;
    const qint64 top = D.margehaute + D.margeentete - Printer.sheet().offsetY;
    const qint64 right = Printer.sheet().width - D.margedroite - Printer.sheet().offsetX;
    const qint64 bottom = Printer.sheet().height - D.margebasse - D.margepieddepage - Printer.sheet().offsetY;
    if (left >= right || top >= bottom)
        throw SansPlace();
    Printer.blank();
    decalagex = Printer.sheet().offsetX;
    decalagey = Printer.sheet().offsetY;
    qsizetype cpMin = debut;
    const qsizetype cpMax = fin;
    const qsizetype longueur = fin == -1 ? rtf.text().size() : rtf.selText().size();
    if (D.ejectionautomatique)
        numeropage = 0;
    int rcbottom = 0;
    for (;;) {
        qint64 haut = top;
        if (!D.ejectionautomatique && positioncourante >= 1) {
            haut = positioncourante;
            if (3 * Printer.textHeight(u"A"_s) > bottom - positioncourante) {
                dessineentetepied();
                Printer.newPage();
                positioncourante = -1;
                Printer.blank();
                haut = top;
            }
        }
        const QRect rc(static_cast<int>(left), static_cast<int>(haut), static_cast<int>(right - left),
                       static_cast<int>(bottom - haut));
        const PrintDevice::Formatted resultat = Printer.format(rtf.richText(), cpMin, cpMax, rc);
        rcbottom = resultat.bottom;
        if (!(resultat.next < longueur))
            break;
        cpMin = resultat.next;
        dessineentetepied();
        Printer.newPage();
        positioncourante = -1;
        Printer.blank();
    }
    positioncourante = entier(rcbottom);
    finimpression();
    Printer.release();
}

void BoucleLitterale::finimpression() {
    if (D.ejectionautomatique) {
        travailencours = false;
        dessineentetepied();
        positioncourante = -1;
        numeropage = 0; // the state between jobs
        Printer.endDocument();
        boutons << false;
    } else {
        travailencours = true;
        positioncourante = entier(positioncourante + 100);
        if (D.ligneseparatrice)
            Printer.rule(0, Printer.sheet().width, positioncourante);
        positioncourante = entier(positioncourante + 100);
        boutons << true;
    }
}

void BoucleLitterale::terminetravail() {
    dessineentetepied();
    Printer.endDocument();
    travailencours = false;
    numeropage = 0;
    positioncourante = -1;
    boutons << false;
}

void BoucleLitterale::abandontravail() {
    // Also where the printer has gone.
    travailencours = false;
    numeropage = 0;
    positioncourante = -1;
    boutons << false;
    Printer.discard();
}

void BoucleLitterale::police(const PoliceImpression& p) {
    Printer.setFont({p.fonte, static_cast<double>(p.taille), p.gras == 1, p.italique == 1});
}

void BoucleLitterale::place(int cadrage, const ReglagesImpression& r, qint64 w) {
    if (cadrage == 0)
        Printer.setX(static_cast<int>(r.margegauche - decalagex));
    if (cadrage == 1) {
        const auto libre = static_cast<double>(Printer.sheet().width - decalagex - r.margegauche - r.margedroite - w);
        Printer.setX(static_cast<int>(std::nearbyint(libre / 2) + static_cast<double>(r.margegauche) - decalagex));
    }
    if (cadrage == 2)
        Printer.setX(static_cast<int>(Printer.sheet().width - r.margedroite - w - decalagex));
}

void BoucleLitterale::dessineentetepied() {
    numeropage = numeropage + 1;
    if (!D.textentete.isEmpty()) {
        police(D.ligneentete.police);
        Printer.setY(static_cast<int>(D.margehaute - decalagey));
        place(D.ligneentete.cadrage, D, Printer.textWidth(D.textentete));
        Printer.print(D.textentete);
    }
    if (D.nopageentete != 0) {
        police(D.lignenopageentete.police);
        Printer.setY(static_cast<int>(D.margehaute - decalagey));
        place(D.lignenopageentete.cadrage, D, Printer.textWidth(u"%1"_s.arg(numeropage)));
        Printer.print(u" %1"_s.arg(numeropage));
    }
    if (!D.textpied.isEmpty()) {
        police(D.lignepied.police);
        Printer.setY(static_cast<int>(Printer.sheet().height - D.margebasse - decalagey));
        place(D.lignepied.cadrage, D, Printer.textWidth(D.textpied));
        Printer.print(D.textpied);
    }
    if (D.nopagepied != 0) {
        police(D.lignenopagepied.police);
        Printer.setY(static_cast<int>(Printer.sheet().height - D.margebasse - decalagey));
        place(D.lignenopagepied.cadrage, D, Printer.textWidth(u"%1"_s.arg(numeropage)));
        Printer.print(u" %1"_s.arg(numeropage));
    }
}

void BoucleLitterale::imprimerrichtextdossier(const RichTextControl& rtf, const QString& nomdossier, qsizetype debut,
                                              qsizetype fin) {
    const qint64 left = DOSSIER.margegauche - Printer.sheet().offsetX;
    const qint64 top = DOSSIER.margehaute + DOSSIER.margeentete - Printer.sheet().offsetY;
    const qint64 right = Printer.sheet().width - DOSSIER.margedroite - Printer.sheet().offsetX;
    const qint64 bottom =
        Printer.sheet().height - DOSSIER.margebasse - DOSSIER.margepieddepage - Printer.sheet().offsetY;
    if (left >= right || top >= bottom)
        throw SansPlace();
    Printer.blank();
    decalagex = Printer.sheet().offsetX;
    decalagey = Printer.sheet().offsetY;
    qsizetype cpMin = debut;
    const qsizetype longueur = fin == -1 ? rtf.text().size() : rtf.selText().size();
    if (DOSSIER.ejectionautomatique)
        numeropage = 0;
    int rcbottom = 0;
    for (;;) {
        qint64 haut = top;
        if (!DOSSIER.ejectionautomatique && positioncourante >= 1) {
            haut = positioncourante;
            if (3 * Printer.textHeight(u"A"_s) > bottom - positioncourante) {
                dessineentetepieddossier(nomdossier);
                Printer.newPage();
                positioncourante = -1;
                Printer.blank();
                haut = top;
            }
        }
        const QRect rc(static_cast<int>(left), static_cast<int>(haut), static_cast<int>(right - left),
                       static_cast<int>(bottom - haut));
        const PrintDevice::Formatted resultat = Printer.format(rtf.richText(), cpMin, fin, rc);
        rcbottom = resultat.bottom;
        if (!(resultat.next < longueur))
            break;
        cpMin = resultat.next;
        dessineentetepieddossier(nomdossier);
        Printer.newPage();
        positioncourante = -1;
        Printer.blank();
    }
    positioncourante = entier(rcbottom);
    finimpressiondossier(nomdossier);
    Printer.release();
}

void BoucleLitterale::finimpressiondossier(const QString& nomdossier) {
    if (DOSSIER.ejectionautomatique) {
        travailencours = false;
        dessineentetepieddossier(nomdossier);
        positioncourante = -1;
        numeropage = 0; // the state between jobs
        Printer.endDocument();
    } else {
        travailencours = true;
        positioncourante = entier(positioncourante + 100);
        if (DOSSIER.ligneseparatrice)
            Printer.rule(0, Printer.sheet().width, positioncourante);
        positioncourante = entier(positioncourante + 100);
    }
}

void BoucleLitterale::terminetravaildossier(const QString& nomdossier) {
    dessineentetepieddossier(nomdossier);
    Printer.endDocument();
    travailencours = false;
    numeropage = 0;
    positioncourante = -1;
    boutons << false;
}

/// Names without the marker alone.
QString BoucleLitterale::travaille(QString texte, const QString& nomdossier) {
    const QString marqueur = u"{DOSSIER}"_s;
    qsizetype pos = texte.toUpper().indexOf(marqueur) + 1;
    while (pos != 0) {
        if (pos == 1)
            texte = nomdossier + texte.mid(marqueur.size());
        else
            texte = texte.left(pos - 1) + nomdossier + texte.mid(pos - 1 + marqueur.size());
        pos = texte.toUpper().indexOf(marqueur) + 1;
    }
    return texte;
}

void BoucleLitterale::dessineentetepieddossier(const QString& nomdossier) {
    numeropage = numeropage + 1;
    const QString haut = travaille(DOSSIER.textentete, nomdossier);
    if (!haut.isEmpty()) {
        police(DOSSIER.ligneentete.police);
        Printer.setY(static_cast<int>(DOSSIER.margehaute - decalagey));
        place(DOSSIER.ligneentete.cadrage, DOSSIER, Printer.textWidth(haut));
        Printer.print(haut);
    }
    if (DOSSIER.nopageentete != 0) {
        police(DOSSIER.lignenopageentete.police);
        Printer.setY(static_cast<int>(DOSSIER.margehaute - decalagey));
        place(DOSSIER.lignenopageentete.cadrage, DOSSIER, Printer.textWidth(u"%1"_s.arg(numeropage)));
        Printer.print(u" %1"_s.arg(numeropage));
    }
    const QString pied = travaille(DOSSIER.textpied, nomdossier);
    if (!pied.isEmpty()) {
        police(DOSSIER.lignepied.police);
        Printer.setY(static_cast<int>(Printer.sheet().height - DOSSIER.margebasse - decalagey));
        place(DOSSIER.lignepied.cadrage, DOSSIER, Printer.textWidth(pied));
        Printer.print(pied);
    }
    if (DOSSIER.nopagepied != 0) {
        police(DOSSIER.lignenopagepied.police);
        Printer.setY(static_cast<int>(Printer.sheet().height - DOSSIER.margebasse - decalagey));
        place(DOSSIER.lignenopagepied.cadrage, DOSSIER, Printer.textWidth(u"%1"_s.arg(numeropage)));
        Printer.print(u" %1"_s.arg(numeropage));
    }
}

} // namespace velm::test
