#pragma once

#include "platform/forms.h"

extern Form Editor1;
