#include "resources/resources.h"

#include <QtGlobal>

void initResources()
{
    Q_INIT_RESOURCE(varnel);
    Q_INIT_RESOURCE(translations);
}
