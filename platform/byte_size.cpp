#include "platform/byte_size.h"
