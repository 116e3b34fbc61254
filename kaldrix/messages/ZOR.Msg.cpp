#include "kaldrix/messages/ZOR.Msg.hpp"
