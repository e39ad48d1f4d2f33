#pragma once

#include <string>

// Opens a file or folder (real path) with the desktop's program for it; false when the opener can't be started.
bool OuvrirAvecBureau(const std::string& cheminReel);

// True for the first copy of the program of this user, and for as long as it runs.
bool PremiereInstance();
