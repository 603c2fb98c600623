// SPDX-License-Identifier: MIT
#pragma once

/// The whole legacy TCP and UDP protocol.
#include "NolvexLibWx/net/ReadDataContext.h"
#include "NolvexLibWx/net/ReceivedData.h"
#include "NolvexLibWx/net/SocketAddress.h"
#include "NolvexLibWx/net/SocketInputStream.h"
#include "NolvexLibWx/net/SocketOutputStream.h"
#include "NolvexLibWx/net/SocketResult.h"
#include "NolvexLibWx/net/TcpClient.h"
#include "NolvexLibWx/net/TcpListener.h"
#include "NolvexLibWx/net/TcpSocket.h"
#include "NolvexLibWx/net/UdpSocket.h"
#include "NolvexLibWx/net/WxSocket.h"
