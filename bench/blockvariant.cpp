#include "blockvariants.h"

#include "modulestate.h"

QByteArray VARIANT::save(const SimpleExtendPar &par)
{
    return saveModule(par);
}

std::unique_ptr<SimpleExtendPar> VARIANT::restore(const QByteArray &state)
{
    return restoreModule(state, QString());
}
