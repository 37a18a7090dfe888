#include "files/reader.h"
