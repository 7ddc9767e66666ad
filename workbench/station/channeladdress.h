// Addresses of channels in the user's notation: "I12.3", "Q4.0", "AIW40", "VD100".
#pragma once

#include "baseservices.h"
#include "simpleextendexportfunc.h"

#include <QString>

#include <optional>

/// The address of a channel of a range, counted from 0.
QString channelAddress(const IoMap &range, int channel);

/// An address as a user types it: bytes of an area, or one bit.
struct Address {
    VarArea area = VarArea::None;
    int byte = 0;
    int length = 1;         ///< in bytes
    std::optional<int> bit; ///< 0 to 7
};

/// Reads an address such as "I 35.2", "AIW40" or "QB4", in any case and with spaces; std::nullopt for any other text.
std::optional<Address> parseAddress(const QString &text);

/// The first channel of @p range that has a byte or the bit of @p address; std::nullopt if there is none.
std::optional<int> channelAt(const IoMap &range, const Address &address);
