#pragma once

class QAbstractItemModel;
class QFontMetrics;

// Width in pixels of the widest text of a model's column, at most `plafond`. Adds letters up where laying texts out
// would take a second for a hundred thousand of them; rows behind these are taken to be no wider.
int LargeurTextes(const QAbstractItemModel& modele, int colonne, const QFontMetrics& lettres, int plafond);
