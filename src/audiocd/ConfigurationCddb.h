#pragma once

#include <string_view>

// What the program says of itself to a CDDB server, and which one it asks when the settings name none. These are the
// values of this deployment; docs/architecture.md tells of them.
inline constexpr std::string_view ServeurCddbParDefaut = "gnudb.gnudb.org";
inline constexpr std::string_view AdresseHello = "velourne@localhost.localdomain";  // passes EmailAddress
inline constexpr std::string_view TitreApplication = "Velourne";
// "majeur.mineur.révision" of the program.
std::string_view VersionApplication();
