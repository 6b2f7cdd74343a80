#include "editors/enemy_data_edit.h"

Form EnemyDataEdit;
