#pragma once

/// The whole public interface of the type manager.

#include "_znnulty.h"
#include "znblob.h"
#include "znboolean.h"
#include "zncodes.h"
#include "zncompare.h"
#include "zncontext.h"
#include "znexport.h"
#include "znident.h"
#include "znint64.h"
#include "znistring.h"
#include "znmultibyte.h"
#include "znoptions.h"
#include "znquery.h"
#include "znscalar.h"
#include "znseal.h"
#include "znstring.h"
#include "zntypecvt.h"
#include "zntypemgr.h"
#include "zntyperow.h"
