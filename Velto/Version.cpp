#include "Velto/Version.h"

const double VeltoVersionNumber = 1.0;
const char VeltoVersionString[] = "Velto 1.0";
