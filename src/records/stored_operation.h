#pragma once

#include "records/operation_store.h"
