#pragma once

#include <QLabel>

// A line of text cut in its middle to the width there is. It asks for no width of its own and always has the height of
// one line, so that a path that changes moves nothing around it.
class Etiquette : public QLabel {
public:
    explicit Etiquette(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* evenement) override;
};
