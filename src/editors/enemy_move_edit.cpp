#include "editors/enemy_move_edit.h"

Form EnemyMoveEdit;
