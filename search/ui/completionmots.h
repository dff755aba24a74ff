#pragma once
// Proposes words while one is being typed into a line. It asks for them after a short pause, never between two keys,
// and changes nothing that the user has not chosen: Down walks into the list, Return or Tab takes a word, Escape or
// typing on leaves it.
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>

class QCompleter;
class QLineEdit;
class QStringListModel;

namespace velm {

class CompletionMots final : public QObject {
    Q_OBJECT

public:
    static constexpr int pause = 180; ///< milliseconds
    static constexpr int plusdemots = 10;

    /// Words that begin with a text, `nombre` at most.
    using Mots = std::function<QStringList(const QString& debut, int nombre)>;

    /// Belongs to the line. `nom` names the list to who cannot see it.
    CompletionMots(QLineEdit* ligne, Mots mots, QString separateurs, const QString& nom);

    /// Forgets what it was about to propose: the line is being searched.
    void renonce();
    bool montree() const;

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void propose();
    void prend(const QString& mot);

    QLineEdit* ligne_;
    Mots mots_;
    QString separateurs_;
    QStringListModel* modele_;
    QCompleter* liste_;
    QTimer attente_;
};

} // namespace velm
