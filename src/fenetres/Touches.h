#pragma once

#include <Qt>

// Enter, of the letters or of the number pad.
inline bool EstEntree(int touche)
{
    return touche == Qt::Key_Return || touche == Qt::Key_Enter;
}
