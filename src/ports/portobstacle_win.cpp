#include "ports/portobstacle.h"

std::optional<PortObstacle> obstacleToTrying(const PortInfo &)
{
    return std::nullopt;
}

// Ports have neither rights nor lock files here: "access denied" means that somebody has the port open.
PortObstacle obstacleTo(const PortInfo &)
{
    return {};
}
