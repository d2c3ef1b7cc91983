#include "CATTEQWBComputePartCmd.h"

#include "ComputePartSession.h"
#include "Toolkit.h"

#include "CATMsgCatalog.h"
#include "CATWBVPMNavFilterPanel.h"

#include <algorithm>

namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

const testing::Environment* const s_toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

using ComputePartCommand = ComputePart;

} // namespace

// The command itself

TEST_F(ComputePartCommand, IsMadeByItsFactoryUnderItsName)
{
    StartIn(kNavigator);
    EXPECT_EQ(command->Name(), "CATTEQWBComputePartCmd");
    EXPECT_STREQ(command->ClassName(), "CATTEQWBComputePartCmd");
}

TEST_F(ComputePartCommand, SaysWhereItWasStarted)
{
    StartIn(kNavigator);
    EXPECT_THAT(output.Lines(), Contains("<Weight>/<NavigatorWorkshop>"));
}

TEST_F(ComputePartCommand, HasItsOwnCatalogAtLevelZeroAndTheAgentsAbove)
{
    StartIn(kNavigator);
    const CATCommand* base = command;
    EXPECT_EQ(base->GetResourceFilename(0), "CATTEQWBComputePartCmd");
    EXPECT_EQ(base->GetResourceFilename(1), "");
    EXPECT_EQ(base->GetResourceFilename(-1), "");
}

TEST_F(ComputePartCommand, PromptsForAPartOrAssembly)
{
    StartIn(kNavigator);
    EXPECT_EQ(frame->Prompt(), "Select a part or an assembly");
}

TEST_F(ComputePartCommand, PromptsInGermanToo)
{
    CATMsgCatalog::SetLanguage("de");
    StartIn(kNavigator);
    EXPECT_EQ(frame->Prompt(), "Wählen Sie ein Teil oder eine Baugruppe");
    CATMsgCatalog::SetLanguage("en");
}

TEST_F(ComputePartCommand, WaitsInTheNavigatorWithOneAgentOfTheNavigator)
{
    StartIn(kNavigator);
    ASSERT_EQ(command->CurrentState()->Agents().size(), 1U);
    const CATDialogAgent* agent = command->CurrentState()->Agents().front();
    EXPECT_STREQ(agent->ClassName(), "CATImmIdentifierAcquisitionAgent");
    EXPECT_EQ(agent->Behaviour(), 0x40a00010);
}

TEST_F(ComputePartCommand, WaitsInTheProductStructureWithOneAgentForPaths)
{
    StartIn(kStructure);
    ASSERT_EQ(command->CurrentState()->Agents().size(), 1U);
    const CATDialogAgent* agent = command->CurrentState()->Agents().front();
    EXPECT_EQ(agent->Name(), "pathElemAcqAgent");
    EXPECT_EQ(agent->Behaviour(), 0x40a00000);
}

TEST_F(ComputePartCommand, HasNothingToWaitForInAnotherWorkshop)
{
    StartIn("DrawingWorkshop");
    EXPECT_THAT(errors.Lines(), ElementsAre("Unexpected situation!"));
    EXPECT_EQ(command->CurrentState(), nullptr);
    EXPECT_FALSE(Pick(aeroplane.Path(4)));
}

TEST_F(ComputePartCommand, KeepsTheWorkshopInWhichItWasMade)
{
    frame = std::make_unique<CATApplicationFrame>(nullptr);
    frame->SetWorkshop(kStructure, "Weight");
    command = dynamic_cast<CATTEQWBComputePartCmd*>(fctCreateCATTEQWBComputePartCmd());
    frame->SetWorkshop(kNavigator, "Weight");
    CATSession::Start(command);
    EXPECT_EQ(command->CurrentState()->Agents().front()->Name(), "pathElemAcqAgent");
}

TEST_F(ComputePartCommand, WithoutAnApplicationFrameFindsNoWorkshop)
{
    command = dynamic_cast<CATTEQWBComputePartCmd*>(fctCreateCATTEQWBComputePartCmd());
    CATSession::Start(command);
    EXPECT_THAT(output.Lines(), ElementsAre("<>/<>"));
    EXPECT_THAT(errors.Lines(), ElementsAre("Unexpected situation!"));
}

// The navigator

TEST_F(ComputePartCommand, NavigatorPickAsksTheServerAndFillsAPanel)
{
    StartIn(kNavigator);
    EXPECT_TRUE(Pick(Firewall()));
    EXPECT_THAT(server->calls,
                ElementsAre("ENOVIA5_GetObjectIdentifier of LA1|FUS-000.1|FUS-100.1|FUS-110.1: "
                            "LA1|NoConfig|FUS-110|A|",
                            "WBCompPartGetInitialValues: "
                            "1||LA1|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1"));
    ASSERT_NE(Panel(), nullptr);
    EXPECT_TRUE(Panel()->IsVisible());
    EXPECT_EQ(Panel()->Parent(), &CATSession::Root());
    const CATWBAllDataBuffer& record = *Panel()->record;
    CATUnicodeString text;
    record.GetCurrentInstanceID(text);
    EXPECT_EQ(text, "FUS-110.1");
    record.GetCurrentPartID(text);
    EXPECT_EQ(text, "FUS-110");
    record.GetCurrentPartVersion(text);
    EXPECT_EQ(text, "A");
    record.GetCurrentPRCID(text);
    EXPECT_EQ(text, "LA1");
    EXPECT_EQ(record.GetInstancePath(), "FUS-100.1|FUS-000.1");
    EXPECT_EQ(record.GetInstancePathDepth(), 2);
    EXPECT_TRUE(record.HasInstInENOVIA());
    EXPECT_TRUE(record.IsLeaf());
    double mass = 0.0;
    record.GetMass("Calculated", mass);
    EXPECT_EQ(mass, 2.0);
    EXPECT_THAT(errors.Lines(), IsEmpty());
    EXPECT_THAT(boxes, IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(ComputePartCommand, NavigatorPickKeepsThePositionThatTheServerSent)
{
    StartIn(kNavigator);
    Pick(Firewall());
    ASSERT_NE(Panel(), nullptr);
    CATRawColldouble values;
    Panel()->record->GetListOfTransMatrix(values);
    EXPECT_EQ(values, CATRawColldouble({1, 0, 0, 0, 1, 0, 0, 0, 1, 7, 8, 9}));
    EXPECT_THAT(output.Lines(), Not(Contains("This instance's transformation:")));
}

TEST_F(ComputePartCommand, EchoesWhatItSendsAndReceives)
{
    StartIn(kNavigator);
    Pick(Firewall());
    const std::string answer = kNavigatorAnswer;
    EXPECT_THAT(output.Lines(), Contains("selection type: Item/ENOVIA_VPMItemInstance"));
    EXPECT_THAT(output.Lines(), Contains("Returned by RunObjectService(): "
                                         "0|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1|Firewall"));
    EXPECT_THAT(output.Lines(), Contains("String to send to the server : "
                                         "1||LA1|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1"));
    EXPECT_THAT(output.Lines(), Contains("Server's response: <" + answer + ">"));
    EXPECT_THAT(output.Lines(), Contains("Final stream that goes into the buffer: "
                                         "1|FUS-110.1|FUS-110|A|LA1|2|FUS-100.1|FUS-000.1|" +
                                         answer));
    EXPECT_THAT(output.Lines(), Contains("MainPanel is null here... instantiating it"));
}

TEST_F(ComputePartCommand, ObjectServiceHearsTheChosenConfiguration)
{
    CATWBVPMNavFilterPanel::selectedPRCConfigHandler = "Config 5";
    StartIn(kNavigator);
    Pick(Firewall());
    CATWBVPMNavFilterPanel::selectedPRCConfigHandler = "NoConfig";
    ASSERT_FALSE(server->calls.empty());
    EXPECT_EQ(server->calls.front(), "ENOVIA5_GetObjectIdentifier of "
                                     "LA1|FUS-000.1|FUS-100.1|FUS-110.1: LA1|Config 5|FUS-110|A|");
}

TEST_F(ComputePartCommand, AssemblyIsNoLeaf)
{
    server->record = "1|FUS-000.1|FUS-000|A|0|Fuselage";
    StartIn(kNavigator);
    Pick(PathTo(CATNavigator::Find({"FUS-000.1"})));
    EXPECT_EQ(server->calls.back(), "WBCompPartGetInitialValues: 1||LA1|FUS-000.1|FUS-000|A|0");
    ASSERT_NE(Panel(), nullptr);
    EXPECT_FALSE(Panel()->record->IsLeaf());
    EXPECT_EQ(Panel()->record->GetInstancePath(), "");
}

TEST_F(ComputePartCommand, NavigatorItemThatIsNoInstanceIsIgnoredSilently)
{
    StartIn(kNavigator);
    EXPECT_TRUE(Pick(PathTo(CATNavigator::CurrentRoot())));
    EXPECT_THAT(output.Lines(), Contains("selection type: Item/ENOVIA_VPMItem"));
    EXPECT_THAT(server->calls, IsEmpty());
    EXPECT_THAT(errors.Lines(), IsEmpty());
    EXPECT_THAT(boxes, IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(ComputePartCommand, NavigatorPickWithoutRootFailsAndWaitsAgain)
{
    StartIn(kNavigator);
    const CATPathElement_var path = Firewall();
    CATNavigator::Close();
    EXPECT_FALSE(Pick(path));
    EXPECT_THAT(server->calls, IsEmpty());
    ExpectNothingShown("Unable to retrieve the current product's identifier!");
}

// The product structure

TEST_F(ComputePartCommand, ProductPickAsksTheServerAndFillsAPanel)
{
    StartIn(kStructure);
    EXPECT_TRUE(Pick(aeroplane.Path(4)));
    EXPECT_THAT(server->calls,
                ElementsAre("ENOVIA5_GetObjectIdentifier of LA1|FUS-000.1|FUS-100.1|FUS-110.1: "
                            "LA1|NoConfig|FUS-110|---|",
                            "WBCompPartGetInitialValues: "
                            "0||LA1|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1"));
    ASSERT_NE(Panel(), nullptr);
    EXPECT_FALSE(Panel()->record->HasInstInENOVIA());
    EXPECT_EQ(Panel()->record->GetInstancePath(), "FUS-100.1|FUS-000.1");
    EXPECT_EQ(Panel()->record->GetInstancePathDepth(), 2);
    EXPECT_TRUE(Panel()->record->IsLeaf());
    EXPECT_THAT(output.Lines(), Contains("PDM: ENOVIA5"));
    EXPECT_THAT(output.Lines(), Contains("selection type: ASMPRODUCT"));
    EXPECT_THAT(output.Lines(),
                Contains(std::string("Final stream that goes into the buffer: "
                                     "0|FUS-110.1|FUS-110|A|LA1|2|FUS-100.1|FUS-000.1|") +
                         kStructureAnswer));
    EXPECT_THAT(errors.Lines(), IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(ComputePartCommand, ProductPickTakesInstanceAndPathFromThePickAndNotFromTheService)
{
    server->record = "0|another|FUS-110|B|1|elsewhere";
    StartIn(kStructure);
    Pick(aeroplane.Path(3));
    EXPECT_EQ(server->calls.back(),
              "WBCompPartGetInitialValues: 0||LA1|FUS-100.1|FUS-110|B|1|FUS-000.1");
}

TEST_F(ComputePartCommand, ProductAtDepthTwoHasAnEmptyPathAndTheDepthTextZero)
{
    StartIn(kStructure);
    EXPECT_TRUE(Pick(aeroplane.Path(2)));
    EXPECT_EQ(server->calls.back(), "WBCompPartGetInitialValues: 0||LA1|FUS-000.1|FUS-110|A|0|");
    EXPECT_THAT(output.Lines(), Contains(std::string("Final stream that goes into the buffer: "
                                                     "0|FUS-000.1|FUS-110|A|LA1|0|") +
                                         kStructureAnswer));
    ASSERT_NE(Panel(), nullptr);
    EXPECT_EQ(Panel()->record->GetInstancePathDepth(), 0);
    EXPECT_EQ(Panel()->record->GetInstancePath(), "");
}

TEST_F(ComputePartCommand, ProductPickStoresItsAbsolutePositionInTwelveNumbers)
{
    // The part's x axis points along the product's y, its y axis along -x.
    auto* leaf = dynamic_cast<FakeMovableProduct*>(aeroplane.products[3].Get());
    leaf->place = CATMathTransformation(CATMath3x3Matrix(0, -1, 0, 1, 0, 0, 0, 0, 1),
                                        CATMathVector(10, 20, -30.5));
    StartIn(kStructure);
    Pick(aeroplane.Path(4));
    ASSERT_NE(Panel(), nullptr);
    CATRawColldouble values;
    Panel()->record->GetListOfTransMatrix(values);
    EXPECT_EQ(values, CATRawColldouble({0, 1, 0, -1, 0, 0, 0, 0, 1, 10, 20, -30.5}));
    const std::vector<std::string>& lines = output.Lines();
    const auto title = std::find(lines.begin(), lines.end(), "This instance's transformation:");
    ASSERT_GE(lines.end() - title, 5);
    EXPECT_THAT(std::vector<std::string>(title + 1, title + 5),
                ElementsAre("0 1 0", "-1 0 0", "0 0 1", "10 20 -30.5"));
}

TEST_F(ComputePartCommand, ProductThatHasNoPlaceIsNotShown)
{
    StartIn(kStructure);
    const CATBaseUnknown_var floating = FakeProduct_var::Adopt(
        new FakeProduct(aeroplane.products[2], "FUS-110.1", "FUS-110", aeroplane.document));
    EXPECT_FALSE(Pick(aeroplane.PathWith(4, 4, floating)));
    ExpectNothingShown("Unable to retrieve the instance transformation!");
}

TEST_F(ComputePartCommand, DocumentOutsideThePdmIsToldOnceAndThenWaitsAgain)
{
    aeroplane.document->environment = "FILE";
    StartIn(kStructure);
    EXPECT_TRUE(Pick(aeroplane.Path(4)));
    EXPECT_THAT(boxes,
                ElementsAre(Box{"Not in the PDM",
                                "The selected object belongs to a document that is not stored in "
                                "the PDM. Weight and balance is known for objects of the PDM "
                                "alone: open the product from there and select again.",
                                0x10000000}));
    EXPECT_THAT(output.Lines(), Contains("PDM: FILE"));
    EXPECT_THAT(server->calls, IsEmpty());
    EXPECT_EQ(Panel(), nullptr);
    ExpectWaitsAgain();

    // The message has been said: the next wrong pick, for another reason, says nothing.
    aeroplane.document->environment = "ENOVIA5";
    EXPECT_TRUE(Pick(aeroplane.Path(1)));
    EXPECT_EQ(boxes.size(), 1U);
}

TEST_F(ComputePartCommand, EnvironmentThatDiffersInLetterCaseIsAnotherOne)
{
    aeroplane.document->environment = "enovia5";
    StartIn(kStructure);
    Pick(aeroplane.Path(4));
    EXPECT_EQ(boxes.size(), 1U);
}

TEST_F(ComputePartCommand, TypeOfTheProductMayDifferInLetterCase)
{
    aeroplane.products[3]->type = "AsmProduct";
    StartIn(kStructure);
    Pick(aeroplane.Path(4));
    EXPECT_NE(Panel(), nullptr);
}

TEST_F(ComputePartCommand, ObjectThatIsNoProductIsIgnoredSilently)
{
    aeroplane.products[3]->type = "GEOMETRY";
    StartIn(kStructure);
    EXPECT_TRUE(Pick(aeroplane.Path(4)));
    EXPECT_THAT(output.Lines(), Contains("selection type: GEOMETRY"));
    EXPECT_THAT(server->calls, IsEmpty());
    EXPECT_THAT(errors.Lines(), IsEmpty());
    EXPECT_THAT(boxes, IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(ComputePartCommand, RootProductIsRefusedAsThePrc)
{
    StartIn(kStructure);
    EXPECT_TRUE(Pick(aeroplane.Path(1)));
    EXPECT_THAT(server->calls, IsEmpty());
    ExpectNothingShown("the selected object seems to be the PRC");
}

TEST_F(ComputePartCommand, ProductWithoutDocumentPiecesIsInvalidWithTheRightLine)
{
    StartIn(kStructure);
    EXPECT_TRUE(Pick(aeroplane.PathWith(4, 4, CATBaseUnknown_var::Adopt(new CATBaseUnknown))));
    ExpectNothingShown("Unable to retrieve a valid link ptr for the current object!");
    EXPECT_TRUE(Pick(CATPathElement_var()));
    EXPECT_EQ(errors.Lines().size(), 2U);
    aeroplane.document->environment.reset();
    EXPECT_TRUE(Pick(aeroplane.Path(4)));
    ExpectNothingShown("Could not retrieve the environment!");
    aeroplane.document->identifier.reset();
    EXPECT_TRUE(Pick(aeroplane.Path(4)));
    ExpectNothingShown("Could not retrieve the Id of the document!");
    aeroplane.products[3]->document = FakeDocument_var();
    EXPECT_TRUE(Pick(aeroplane.Path(4)));
    ExpectNothingShown("Unable to retrieve the document!");
    EXPECT_THAT(server->calls, IsEmpty());
}

TEST_F(ComputePartCommand, ProductWhoseRootIsNoneFailsAndWaitsAgain)
{
    StartIn(kStructure);
    EXPECT_FALSE(Pick(aeroplane.PathWith(4, 1, CATBaseUnknown_var::Adopt(new CATBaseUnknown))));
    EXPECT_THAT(server->calls, IsEmpty());
    ExpectNothingShown("Could not obtain a valid CATIprd pointer for the topmost object!");
}

TEST_F(ComputePartCommand, ProductPathWithAHoleFailsBeforeTheServerIsAskedForValues)
{
    StartIn(kStructure);
    EXPECT_FALSE(Pick(aeroplane.PathWith(4, 3, CATBaseUnknown_var())));
    EXPECT_EQ(server->calls.size(), 1U);
    EXPECT_THAT(errors.Lines(), ElementsAre("Unable to obtain the object/parent at position 3",
                                            "Unable to get the instance path!"));
    ExpectNothingShown("Unable to get the instance path!");
}

// The server

TEST_F(ComputePartCommand, FailedObjectServiceEndsThePick)
{
    server->record.reset();
    StartIn(kNavigator);
    EXPECT_FALSE(Pick(Firewall()));
    EXPECT_EQ(server->calls.size(), 1U);
    ExpectNothingShown("The character pointer returned by the server is NULL!");
}

TEST_F(ComputePartCommand, RecordWithoutLeafFlagEndsThePick)
{
    server->record = "x|FUS-110.1|FUS-110|A|0";
    StartIn(kNavigator);
    EXPECT_FALSE(Pick(Firewall()));
    EXPECT_EQ(server->calls.size(), 1U);
    ExpectNothingShown("Unable to tell if the current instance is a leaf or not!");
}

TEST_F(ComputePartCommand, EmptyAnswerIsACommunicationError)
{
    StartIn(kNavigator);
    server->answer = "";
    EXPECT_FALSE(Pick(Firewall()));
    EXPECT_THAT(boxes, ElementsAre(Box{"No answer from the server",
                                       "The weight-and-balance server did not answer, so the "
                                       "values of the selected object could not be read. Check "
                                       "that the server is running, then select the object again.",
                                       0x10000000}));
    EXPECT_THAT(output.Lines(), Contains("Server's response: <>"));
    EXPECT_EQ(Panel(), nullptr);
    ExpectWaitsAgain();
}

TEST_F(ComputePartCommand, ServerErrorShowsTheTextBehindTheMarker)
{
    StartIn(kNavigator);
    server->answer = "#WB_ERROR#The part FUS-110 is not known.";
    EXPECT_FALSE(Pick(Firewall()));
    EXPECT_THAT(boxes, ElementsAre(Box{"The server reports an error",
                                       "The part FUS-110 is not known.", 0x10000000}));
    EXPECT_EQ(Panel(), nullptr);
    ExpectWaitsAgain();
}

TEST_F(ComputePartCommand, ServerErrorLosesAsManyCharactersAsTheMarkerHasWhereverThatStands)
{
    StartIn(kNavigator);
    server->answer = "0123456789AB#WB_ERROR#C";
    Pick(Firewall());
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes.front().text, "AB#WB_ERROR#C");
}

TEST_F(ComputePartCommand, RecordThatCannotBeDecodedIsNotShown)
{
    StartIn(kNavigator);
    server->answer = "1|0|-1|0|0|0|1|0|"; // a persistency flag below 0
    EXPECT_FALSE(Pick(Firewall()));
    ExpectNothingShown("SetAllData() crashed!");
}

TEST_F(ComputePartCommand, FailedPickLeavesThePanelAsItWas)
{
    StartIn(kNavigator);
    Pick(Firewall());
    ASSERT_NE(Panel(), nullptr);
    const CATWBAllDataBuffer* before = Panel()->record.Get();
    server->answer = "";
    EXPECT_FALSE(Pick(Firewall()));
    EXPECT_EQ(Panel()->record.Get(), before);
    EXPECT_EQ(Panel()->refills, 0);
}

// The panel

TEST_F(ComputePartCommand, PanelAloneHoldsTheRecordAfterThePick)
{
    StartIn(kNavigator);
    Pick(Firewall());
    ASSERT_NE(Panel(), nullptr);
    EXPECT_EQ(Panel()->references, 2); // the command's and the panel's
    EXPECT_EQ(Panel()->record->ReferenceCount(), 1);
}

TEST_F(ComputePartCommand, FurtherPicksRefillThePanel)
{
    StartIn(kNavigator);
    Pick(Firewall());
    Pick(Firewall());
    Pick(Firewall());
    EXPECT_EQ(FakePanel::s_made.size(), 1U);
    EXPECT_EQ(Panel()->refills, 2);
    EXPECT_EQ(Panel()->record->ReferenceCount(), 1);
    EXPECT_THAT(output.Lines(), Contains("Filling in the panel..."));
}

TEST_F(ComputePartCommand, RefillShowsAHiddenPanelAgain)
{
    StartIn(kNavigator);
    Pick(Firewall());
    Panel()->SetVisibility(false);
    Pick(Firewall());
    EXPECT_TRUE(Panel()->IsVisible());
}

TEST_F(ComputePartCommand, NewestPanelBesideTheMainWindowIsFilled)
{
    StartIn(kNavigator);
    const auto record = CATHandle<CATWBAllDataBuffer>::Adopt(new CATWBAllDataBuffer);
    auto* older = new FakePanel(&CATSession::Root(), record.Get());
    auto* newer = new FakePanel(&CATSession::Root(), record.Get());
    new CATCommand(&CATSession::Root(), "Another");
    Pick(Firewall());
    EXPECT_EQ(older->refills, 0);
    EXPECT_EQ(newer->refills, 1);
    EXPECT_EQ(FakePanel::s_made.size(), 2U);
}

TEST_F(ComputePartCommand, PanelThatIsOlderThanTheMainWindowIsFilledToo)
{
    const auto record = CATHandle<CATWBAllDataBuffer>::Adopt(new CATWBAllDataBuffer);
    auto* panel = new FakePanel(&CATSession::Root(), record.Get());
    StartIn(kNavigator);
    ASSERT_EQ(CATSession::Root().Child(1), panel);
    Pick(Firewall());
    EXPECT_EQ(panel->refills, 1);
    EXPECT_EQ(FakePanel::s_made.size(), 1U);
}

TEST_F(ComputePartCommand, ClosingThePanelsWindowEndsTheCommandAndThePanel)
{
    StartIn(kNavigator);
    Pick(Firewall());
    Panel()->Send(CATDlgDialog::WindowClosed);
    EXPECT_TRUE(command->IsDestructionRequested());
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_EQ(CATSession::PendingDestructions(), 0);
}

TEST_F(ComputePartCommand, CloseButtonOfThePanelEndsTheCommandAndThePanel)
{
    StartIn(kNavigator);
    Pick(Firewall());
    Panel()->GetCloseButton()->Send(CATDlgPushButton::Activated);
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_EQ(Panel(), nullptr);
}

TEST_F(ComputePartCommand, ClosingAPanelThatAnotherCommandMadeLeavesThisOneWaiting)
{
    StartIn(kNavigator);
    const auto record = CATHandle<CATWBAllDataBuffer>::Adopt(new CATWBAllDataBuffer);
    auto* panel = new FakePanel(&CATSession::Root(), record.Get());
    Pick(Firewall());
    panel->Send(CATDlgDialog::WindowClosed);
    EXPECT_FALSE(command->IsDestructionRequested());
    ExpectWaitsAgain();
}

TEST_F(ComputePartCommand, CancelledCommandTakesItsPanelAlong)
{
    StartIn(kNavigator);
    Pick(Firewall());
    CATSession::CancelRunningCommand();
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(Panel(), nullptr);
}

TEST_F(ComputePartCommand, AsksForTheDestructionOfItsAgents)
{
    StartIn(kStructure);
    const CATCommandWatch<CATDialogAgent> agent(command->CurrentState()->Agents().front());
    CATSession::CancelRunningCommand();
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(agent.Get(), nullptr);

    Start(kNavigator);
    const CATCommandWatch<CATDialogAgent> other(command->CurrentState()->Agents().front());
    CATSession::CancelRunningCommand();
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(other.Get(), nullptr);
}

TEST_F(ComputePartCommand, SessionThatEndsFirstTakesThePanelFromUnderTheCommand)
{
    StartIn(kNavigator);
    Pick(Firewall());
    CATSession::Close(); // destroys last to first: the panel goes before the command
    EXPECT_EQ(Panel(), nullptr);
}

TEST_F(ComputePartCommand, WithoutAPanelsLibraryThePickFails)
{
    CATWBVPMNavGUISetTable({});
    StartIn(kNavigator);
    EXPECT_FALSE(Pick(Firewall()));
    ExpectNothingShown("The main panel could not be made!");
}

TEST_F(ComputePartCommand, RunsInASessionWithoutWindows)
{
    frame = std::make_unique<CATApplicationFrame>(nullptr);
    Start(kNavigator);
    EXPECT_TRUE(Pick(Firewall()));
    ASSERT_NE(Panel(), nullptr);
    EXPECT_EQ(Panel()->Parent(), &CATSession::Root());
    double mass = 0.0;
    Panel()->record->GetMass("Calculated", mass);
    EXPECT_EQ(mass, 2.0);
}

TEST_F(ComputePartCommand, WithoutAMainWindowThePickFails)
{
    StartIn(kNavigator);
    const CATPathElement_var path = Firewall();
    frame.reset();
    EXPECT_FALSE(Pick(path));
    ExpectNothingShown("There is no main window to open the panel beside!");
}
