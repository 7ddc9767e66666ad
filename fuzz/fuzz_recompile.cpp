// Reads any bytes as a configuration block.
#include "blocktarget.h"

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::checkBlock(fuzz::bytesOf(data, size), BlockFormat::Configuration);
    return 0;
}
