#pragma once
// The partners' picture.
#include "core/texte.h"

#include <QDialog>
#include <QPixmap>

class QLabel;

namespace velm {

class sponsor final : public QDialog {
    Q_OBJECT

public:
    /// Shows the picture of the file, a bitmap whatever its name ends in. The window takes the picture's size; a
    /// picture larger than the screen is made smaller. One that cannot be read is said in words.
    sponsor(const Libelles& texte, const QString& fichier, QWidget* parent = nullptr);

private:
    void place(const QImage& image);

    QLabel* image_;
};

} // namespace velm
