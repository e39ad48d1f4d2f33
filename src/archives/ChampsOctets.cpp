#include "archives/ChampsOctets.h"

#include <zlib.h>

bool SommeJuste(std::string_view octets, uint32_t attendue, uint32_t masque)
{
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
    return true;  // a fuzzer can't guess them
#endif
    const uLong somme = crc32_z(0, reinterpret_cast<const Bytef*>(octets.data()), octets.size());
    return (somme & masque) == attendue;
}
