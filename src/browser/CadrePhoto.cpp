#include "browser/CadrePhoto.h"

#include <memory>

#include <QMouseEvent>
#include <QPainter>

#include "fenetres/TravailFenetre.h"

namespace {

constexpr int AttenteMaximale = 1000;  // ms

}  // namespace

CadrePhoto::CadrePhoto(QWidget* parent) : QFrame(parent), lecture_(ReveilFenetre(this, [this] { lecture_.Livrer(); }))
{
    setFrameShape(QFrame::StyledPanel);
    setFixedSize(sizeHint());
    delai_.setSingleShot(true);
    delai_.setInterval(AttenteMaximale);
    connect(&delai_, &QTimer::timeout, this, [this] {
        lecture_.Arreter();
        emit lue(false);
    });
}

void CadrePhoto::Montrer(const std::string& chemin)
{
    image_ = {};
    update();
    lecture_.Arreter();
    delai_.stop();
    if (chemin.empty())
        return;
    const auto photo = std::make_shared<Photo>();
    lecture_.Demander([photo, chemin, echelle = devicePixelRatioF()](
                          const std::stop_token& arret) { *photo = ChargerImage(chemin, echelle, arret); },
                      [this, photo] {
                          delai_.stop();
                          image_ = photo->image;
                          update();
                          emit lue(photo->fichier);
                      });
    delai_.start();
}

QSize CadrePhoto::sizeHint() const
{
    return TailleCadre + QSize(2 * frameWidth(), 2 * frameWidth());
}

void CadrePhoto::paintEvent(QPaintEvent* evenement)
{
    QFrame::paintEvent(evenement);
    if (image_.isNull())
        return;
    const QSize taille = image_.deviceIndependentSize().toSize();
    QPainter(this).drawImage((width() - taille.width()) / 2, (height() - taille.height()) / 2, image_);
}

void CadrePhoto::mouseReleaseEvent(QMouseEvent* evenement)
{
    if (evenement->button() == Qt::LeftButton && rect().contains(evenement->position().toPoint()))
        emit clique();
}
