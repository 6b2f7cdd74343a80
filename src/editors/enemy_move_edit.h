#pragma once

#include "platform/forms.h"

extern Form EnemyMoveEdit;
