#pragma once

#include "zndatecompare.h"
#include "zntypes/row_parts.h"

/// Hash and bound rows of dates and times, and the groups of what queries ask.

namespace zntms {

unsigned int HashDates(unsigned char format, unsigned int length, void * value, unsigned int count,
                       int & error);
unsigned int HashTimes(unsigned char format, unsigned int length, void * value, unsigned int count,
                       int & error);
unsigned int HashDateTimes(unsigned char format, unsigned int length, void * value,
                           unsigned int count, int & error);
/// Spans too.
unsigned int HashDateTimeNs(unsigned char format, unsigned int length, void * value,
                            unsigned int count, int & error);
unsigned int HashStdDates(unsigned char format, unsigned int length, void * value,
                          unsigned int count, int & error);
unsigned int HashStdTimes(unsigned char format, unsigned int length, void * value,
                          unsigned int count, int & error);
unsigned int HashStdTimestamps(unsigned char format, unsigned int length, void * value,
                               unsigned int count, int & error);

float BoundDates(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                 unsigned int count, ZnIdxBounds * out);
float BoundTimes(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                 unsigned int count, ZnIdxBounds * out);
float BoundDateTimes(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                     unsigned int count, ZnIdxBounds * out);
/// Spans too.
float BoundDateTimeNs(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                      unsigned int count, ZnIdxBounds * out);
float BoundStdDates(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                    unsigned int count, ZnIdxBounds * out);
float BoundStdTimes(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                    unsigned int count, ZnIdxBounds * out);
float BoundStdTimestamps(ZnIdxBounds * area, unsigned short & op, void * value,
                         unsigned char format, unsigned int count, ZnIdxBounds * out);

} // namespace zntms
