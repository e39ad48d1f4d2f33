#pragma once

#include <string>

#include <QFrame>
#include <QTimer>

#include "browser/ChargerImage.h"
#include "commun/Consultation.h"

// The frame in which a linked picture is shown, in its middle. It is read beside the window's thread, and waited for
// no longer than a second.
class CadrePhoto : public QFrame {
    Q_OBJECT

public:
    explicit CadrePhoto(QWidget* parent = nullptr);

    // Shows the picture at a path, none at once; `lue` follows when it is known whether a file stands there.
    void Montrer(const std::string& chemin);
    const QImage& Image() const { return image_; }
    bool EnCours() const { return lecture_.EnCours(); }

    QSize sizeHint() const override;

signals:
    void lue(bool fichier);
    void clique();

protected:
    void paintEvent(QPaintEvent* evenement) override;
    void mouseReleaseEvent(QMouseEvent* evenement) override;

private:
    Consultation lecture_;
    QTimer delai_;
    QImage image_;
};
