// SPDX-License-Identifier: MIT
#pragma once

/// The legacy TCP and UDP protocol, all of it.
#include "NolvexLibWx/net/DataCompression.h"
#include "NolvexLibWx/net/DataType.h"
#include "NolvexLibWx/net/ReadDataContext.h"
#include "NolvexLibWx/net/ReceivedData.h"
#include "NolvexLibWx/net/ReceivedFile.h"
#include "NolvexLibWx/net/ReceivedRawData.h"
#include "NolvexLibWx/net/SocketAddress.h"
#include "NolvexLibWx/net/SocketInputStream.h"
#include "NolvexLibWx/net/SocketOutputStream.h"
#include "NolvexLibWx/net/SocketResult.h"
#include "NolvexLibWx/net/TcpClient.h"
#include "NolvexLibWx/net/TcpListener.h"
#include "NolvexLibWx/net/TcpSocket.h"
#include "NolvexLibWx/net/UdpSocket.h"
#include "NolvexLibWx/net/WxSocket.h"
