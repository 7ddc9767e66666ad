// Reads any bytes as a saved state.
#include "blocktarget.h"

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::checkBlock(fuzz::bytesOf(data, size), BlockFormat::SavedState);
    return 0;
}
