#include "editors/editor1.h"

Form Editor1;
