#include "printing/PrintLayout.h"
