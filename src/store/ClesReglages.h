#pragma once

#include <array>
#include <string_view>

// Names of the settings. The defaults stand with each reader: they are not the same everywhere.

inline constexpr std::string_view SectionSettings = "Settings";
inline constexpr std::string_view SectionDescriptions = "Descriptions";
inline constexpr std::string_view SectionFreedb = "Freedb";
inline constexpr std::string_view SectionOptions = "Options";
inline constexpr std::string_view SectionPropriete = "Propriete";
inline constexpr std::string_view SectionLvListView = "LvListView";
inline constexpr std::string_view SectionRecLvListView = "RecLvListView";
inline constexpr std::string_view SectionTypes = "Types";  // one key for each category: its name

// Section "Settings". To a name "DebutCle..." its number is added.
inline constexpr std::string_view CleTopMain = "TopMain";
inline constexpr std::string_view CleLeftMain = "LeftMain";
inline constexpr std::string_view CleTopExtract = "TopExtract";
inline constexpr std::string_view CleLeftExtract = "LeftExtract";
inline constexpr std::string_view CleBaseCourante = "BaseCourante";
inline constexpr std::string_view CleDrive = "Drive";
inline constexpr std::string_view CleExtension = "Extension";
inline constexpr std::array<std::string_view, 4> CleCompression = {"Compression 0", "Compression 1", "Compression 2",
                                                                   "Compression 3"};
inline constexpr std::string_view CleMethode = "Methode";
inline constexpr std::string_view CleMainState = "MainState";
inline constexpr std::string_view CleMainLeft = "MainLeft";
inline constexpr std::string_view CleMainTop = "MainTop";
inline constexpr std::string_view CleMainWidth = "MainWidth";
inline constexpr std::string_view CleMainHeight = "MainHeight";
inline constexpr std::string_view ClePicSplitterLeft = "picSplitter_Left";
inline constexpr std::string_view ClePicSplitterTop = "picSplitter_Top";
inline constexpr std::string_view CleView = "View";
inline constexpr std::string_view CleViewMode = "ViewMode";
inline constexpr std::string_view CleRecView = "RecView";
inline constexpr std::string_view CleRecViewMode = "RecViewMode";
inline constexpr std::string_view CleLMedias = "LMedias";
inline constexpr std::string_view CleLExt = "LExt";
inline constexpr std::string_view CleLIdent = "LIdent";
inline constexpr std::string_view CleLLabel = "LLabel";
inline constexpr std::string_view DebutCleOpt = "Opt";              // + Str(n)
inline constexpr std::string_view DebutCleOptFormat = "OptFormat";  // + Str(n)
inline constexpr std::string_view CleOptFormatI = "OptFormatI";
inline constexpr std::string_view DebutCleRec = "Rec";    // + Str(n)
inline constexpr std::string_view DebutCleDate = "Date";  // + Str(n)
inline constexpr std::string_view CleRecSansType = "RecSansType";
inline constexpr std::string_view CleCptSaisie = "CptSaisie";
inline constexpr std::string_view DebutCleSaisie = "Saisie";  // + Str(n)
inline constexpr std::array<std::string_view, 4> CleOptionsDivers = {"OptionsDivers 0", "OptionsDivers 1",
                                                                     "OptionsDivers 2", "OptionsDivers 3"};
inline constexpr std::string_view CleBaseLocale = "BaseLocale";  // in "Freedb" too: a folder there
inline constexpr std::string_view CleProxy = "Proxy";
inline constexpr std::string_view CleUserNameProxy = "UserNameProxy";
inline constexpr std::string_view ClePassProxy = "PassProxy";
inline constexpr std::string_view DebutCleBaseRecente = "BaseRecente";  // + Str(n), from 1: the last one first
inline constexpr std::string_view ClePoliceDescription = "PoliceDescription";

// Section "Descriptions"; its kinds of files stand in the tables of the preferences and of the dispatch.
inline constexpr std::string_view CleIndex = "Index";

// Section "Freedb".
inline constexpr std::string_view CleServeur = "Serveur";

// Sections "Options", "Propriete" and "LvListView".
inline constexpr std::string_view CleOnglet = "Onglet";

// Sections "LvListView" and "RecLvListView".
inline constexpr std::string_view DebutCleLargeur = "L";        // + column number, from 1
inline constexpr std::string_view DebutCleLargeurRec = "RecL";  // + column number, from 1
inline constexpr std::string_view CleRecLargeurs = "RecLargeurs";  // 1: the user has set them
inline constexpr std::array<std::string_view, 2> CleRecColonnes = {"RecMedia", "RecDossier"};  // 1: shown
inline constexpr std::string_view CleSortKey = "SortKey";
inline constexpr std::string_view CleSortOrder = "SortOrder";
