#include "audiocd/ConfigurationCddb.h"

std::string_view VersionApplication()
{
    return VELOURNE_VERSION;
}
