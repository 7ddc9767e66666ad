// The plug-in's saving and restoring twice, each in a library of its own and both with the catalog set aside: a look-up
// finds an empty entry at once, and every component file exists. Without an owner no range is claimed either.
#pragma once

#include "simpleextendpar.h"

#include <memory>

#define BLOCK_VARIANT(name)                                                                                            \
    namespace name {                                                                                                   \
    Q_DECL_EXPORT QByteArray save(const SimpleExtendPar &par);                                                         \
    Q_DECL_EXPORT std::unique_ptr<SimpleExtendPar> restore(const QByteArray &state);                                   \
    }

BLOCK_VARIANT(asshipped)
BLOCK_VARIANT(withoutlines) ///< as if nobody had ever thought of diagnostic lines
