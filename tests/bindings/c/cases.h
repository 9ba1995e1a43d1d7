#ifndef KELP_TESTS_BINDINGS_C_CASES_H
#define KELP_TESTS_BINDINGS_C_CASES_H

// The tests of the C interface are written in C, as its users write; each is run as a test of
// GoogleTest, which tells what failed.

#ifdef __cplusplus
extern "C" {
#endif

/// Tells GoogleTest of a check that failed.
void kelp_check(int passed, const char* file, int line, const char* what);

#define KELP_CHECK(condition) kelp_check((condition) ? 1 : 0, __FILE__, __LINE__, #condition)

#define KELP_C_CASES(X)                              \
  X(VersionsAreThoseOfTheHeader)                     \
  X(StatusesHaveTexts)                               \
  X(TextsMayHoldNulBytes)                            \
  X(FilesAreReadAndMissingOnesAreErrors)             \
  X(LongErrorTextsAreCut)                            \
  X(SchemasAreReadAndBrokenOnesAreErrors)            \
  X(AnInputKeepsTheSchemaItWasReadWith)              \
  X(PositionsAndBytesAreEachOthersInverse)           \
  X(RecordsHaveLinesRangesAndPaths)                  \
  X(ValuesAreFoundByTheirPaths)                      \
  X(WhatIsNotThereIsNotFoundAndNearNamesAreTold)     \
  X(FindingsTellAllThatACheckKnows)                  \
  X(OptionsOfACheckCount)                            \
  X(FixesMendTheText)                                \
  X(AnOutlineListsWhatStandsWhere)                   \
  X(MoleculesGiveTheirCoordinatesAsOneArray)         \
  X(MoleculesAreMadeOfArraysAndOfXyz)                \
  X(CalculationsTellWhatIsComputed)                  \
  X(ChangesLeaveAllElseAsItIs)                       \
  X(ChangesThatCannotBeMadeAreRefused)               \
  X(LossesAreFindingsAboutTheNewText)                \
  X(GeometriesArePutIn)                              \
  X(InputsAreLaidOutAndRendered)                     \
  X(FilesAreWrittenAndReplacedUnlessTheyWereChanged) \
  X(SweepsNameAllCombinationsAndMakeThem)            \
  X(SweepsThatCannotBeNamedAreRefused)               \
  X(NamesAreListedAndNearOnesFound)                  \
  X(ExplanationsAreTexts)                            \
  X(HandlesThatWereFreedAreRefusedByEveryFunction)   \
  X(HandlesOfAnotherKindAreRefused)                  \
  X(NullPointersAndWrongNumbersAreRefused)           \
  X(RecordsOfAnOlderVersionAreFilledAsFarAsTheyGo)   \
  X(WhatWasMadeOfAnInputOutlivesIt)                  \
  X(NoHandleIsLeftWhenAllAreFreed)

#define KELP_DECLARE_CASE(name) void name(void);
KELP_C_CASES(KELP_DECLARE_CASE)

#ifdef __cplusplus
}
#endif

#endif
