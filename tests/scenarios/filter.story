# Filters of the sample products: defined by picks, named, switched on and off, kept, given up. The expected masses are
# those of data/expected_totals.csv, added and subtracted by hand.
start CATTEQWBDefineFilterCmd
expect Prompt "Select the instances that the filter shall take in or leave out"
expect CATWBVPMNavFilterPanel Filters
expect CATWBVPMNavFilterPanel/Product LA1
expect CATWBVPMNavFilterPanel/Counting "No filter"
expect CATWBVPMNavFilterPanel/Instances/List 0
shot filter_panel_empty.png CATWBVPMNavFilterPanel

# The tail is left out.
pick LA1/EMP-000.1
expect CATWBVPMNavFilterPanel/Name "Filter 1"
expect CATWBVPMNavFilterPanel/On on
expect-cell CATWBVPMNavFilterPanel/Instances/List 1 "In or out" out
expect-cell CATWBVPMNavFilterPanel/Instances/List 1 Part EMP-000
expect-cell CATWBVPMNavFilterPanel/Instances/List 1 Name Empennage
expect-cell CATWBVPMNavFilterPanel/Instances/List 1 Path LA1/EMP-000.1
expect CATWBVPMNavFilterPanel/Rest "Everything else is left in."
type CATWBVPMNavFilterPanel/Name "Without tail"
expect CATWBVPMNavFilterPanel/Counting "Without tail"
click CATWBVPMNavFilterPanel/OkButton
expect Prompt ""

# 381.35925 kg less 18.702996 kg, and the deviations likewise; items are the parts at the ends of the tree, also those
# below the weighed engine. Nobody asks whether the whole product is meant.
start CATWBComputeCmd
expect CATWBComputeCmd/ConfigHandlerEditor "Without tail"
click CATWBComputeCmd/ComputeButton
expect-box "the filter \"Without tail\" leaves out 29 of 226 items"
expect CATWBComputeCmd/MassEditor 362.656kg
expect CATWBComputeCmd/LowerDeviationEditor 10.964kg
expect CATWBComputeCmd/UpperDeviationEditor 18.787kg
# (381.00925 kg at 930.082 mm less 18.702996 kg at 4700 mm + 406.828 mm) / 362.306254 kg: the placards have no centre.
expect CATWBComputeCmd/CGxEditor 714.47mm
expect CATWBComputeCmd/CGyEditor -3.215mm
expect CATWBComputeCmd/CGzEditor -225.688mm
shot filter_result.png CATWBComputeCmd
click CATWBComputeCmd/CloseButton
start CATWBVPMNavReport
expect CATWBVPMNavReportPanel/Filter "Without tail"
click CATWBVPMNavReportPanel/CloseButton

# A second filter: the wing alone, without its left panel. It takes the place of the first one.
start CATTEQWBDefineFilterCmd
expect CATWBVPMNavFilterPanel/Filter "Without tail"
expect-cell CATWBVPMNavFilterPanel/Instances/List 1 Path LA1/EMP-000.1
click CATWBVPMNavFilterPanel/NewButton
expect CATWBVPMNavFilterPanel/On off
type CATWBVPMNavFilterPanel/Name "Right wing"
check CATWBVPMNavFilterPanel/On on
expect CATWBVPMNavFilterPanel/Counting "Right wing"
pick LA1/WNG-000.1/WNG-200L.1
select CATWBVPMNavFilterPanel/NewLines "left in"
pick LA1/WNG-000.1
expect CATWBVPMNavFilterPanel/Rest "Everything else is left out."
# The last line that matches wins: the whole wing must come first.
click CATWBVPMNavFilterPanel/UpButton
expect-cell CATWBVPMNavFilterPanel/Instances/List 1 Instance WNG-000.1
expect-cell CATWBVPMNavFilterPanel/Instances/List 1 "In or out" in
expect-cell CATWBVPMNavFilterPanel/Instances/List 2 "In or out" out
pick LA1/WNG-000.1/WNG-200L.1 LA1/FUS-000.1
expect CATWBVPMNavFilterPanel/Instances/List 3
click CATWBVPMNavFilterPanel/RemoveButton
expect CATWBVPMNavFilterPanel/Instances/List 2
shot filter_panel.png CATWBVPMNavFilterPanel
pick LA1/WNG-000.1/WNG-200L.1
expect CATWBVPMNavFilterPanel/Word "WNG-200L.1 is in the list already."
resize CATWBVPMNavFilterPanel 640 480
shot filter_panel_small.png CATWBVPMNavFilterPanel
# Whoever starts something else meanwhile finds what was changed when they come back.
start CATWBComputeCmd
expect CATWBComputeCmd/ConfigHandlerEditor "Without tail"
start CATTEQWBDefineFilterCmd
expect CATWBVPMNavFilterPanel/Word "What you changed last time was not kept yet: press OK or Cancel."
expect CATWBVPMNavFilterPanel/Name "Right wing"
expect CATWBVPMNavFilterPanel/Instances/List 2
click CATWBVPMNavFilterPanel/Name
key Return

# 103.982044 kg less 44.608072 kg.
start CATWBComputeCmd
expect CATWBComputeCmd/ConfigHandlerEditor "Right wing"
click CATWBComputeCmd/ComputeButton
expect-box "Right wing"
expect CATWBComputeCmd/MassEditor 59.374kg
expect CATWBComputeCmd/LowerDeviationEditor 1.67kg
expect CATWBComputeCmd/UpperDeviationEditor 2.832kg
click CATWBComputeCmd/CloseButton

# Turned round: the line of the whole wing wins over the one of its left panel.
start CATTEQWBDefineFilterCmd
expect CATWBVPMNavFilterPanel/Filter "Right wing"
click CATWBVPMNavFilterPanel/DownButton
click CATWBVPMNavFilterPanel/OkButton
start CATWBComputeCmd
click CATWBComputeCmd/ComputeButton
expect-box "Right wing"
expect CATWBComputeCmd/MassEditor 103.982kg
click CATWBComputeCmd/CloseButton

# A name that no request can hold, and the same name twice.
start CATTEQWBDefineFilterCmd
type CATWBVPMNavFilterPanel/Name "Right|wing"
click CATWBVPMNavFilterPanel/OkButton
expect-box "\"Right|wing\" cannot be the name of a filter"
type CATWBVPMNavFilterPanel/Name "Without tail"
click CATWBVPMNavFilterPanel/OkButton
expect-box "Two filters are called \"Without tail\""
# What was changed is given up.
click CATWBVPMNavFilterPanel/CancelButton
start CATTEQWBDefineFilterCmd
expect CATWBVPMNavFilterPanel/Name "Right wing"
expect CATWBVPMNavFilterPanel/On on

# One cylinder of the weighed engine: what the engine weighed whole no longer counts, but what is left of the 59.8 kg
# below it: 381.35925 kg less 61.4 kg and 6 kg, and 59.8 kg more.
click CATWBVPMNavFilterPanel/NewButton
select CATWBVPMNavFilterPanel/NewLines "left out"
pick LA1/PWR-000.1/PWR-100.1/PWR-120.1
check CATWBVPMNavFilterPanel/On on
type CATWBVPMNavFilterPanel/Name "Three cylinders"
# Closing by the frame asks first.
answer Yes
close CATWBVPMNavFilterPanel
start CATWBComputeCmd
click CATWBComputeCmd/ComputeButton
expect-box "the filter leaves out something below it"
expect CATWBComputeCmd/MassEditor 373.759kg
click CATWBComputeCmd/CloseButton

# Switched off, they are still there, and the whole product counts again.
start CATTEQWBDefineFilterCmd
expect CATWBVPMNavFilterPanel/Filter "Three cylinders"
check CATWBVPMNavFilterPanel/On off
expect CATWBVPMNavFilterPanel/Counting "No filter"
click CATWBVPMNavFilterPanel/OkButton
start CATWBComputeCmd
expect CATWBComputeCmd/ConfigHandlerEditor "No filter"
answer Yes
click CATWBComputeCmd/ComputeButton
expect-box "Warnings of the computation"
expect CATWBComputeCmd/MassEditor 381.359kg
click CATWBComputeCmd/CloseButton
start CATTEQWBDefineFilterCmd
select CATWBVPMNavFilterPanel/Filter "Right wing"
expect-cell CATWBVPMNavFilterPanel/Instances/List 2 Instance WNG-000.1
select CATWBVPMNavFilterPanel/Filter "Three cylinders"
expect-cell CATWBVPMNavFilterPanel/Instances/List 1 Path LA1/PWR-000.1/PWR-100.1/PWR-120.1
close CATWBVPMNavFilterPanel

# Another product has its own: without the telescope, 107.9207 kg less 24.62 kg.
open SC1
start CATTEQWBDefineFilterCmd
expect CATWBVPMNavFilterPanel/Product SC1
expect CATWBVPMNavFilterPanel/Counting "No filter"
pick SC1/PAY-000.1
click CATWBVPMNavFilterPanel/OkButton
start CATWBComputeCmd
expect CATWBComputeCmd/ConfigHandlerEditor "Filter 1"
click CATWBComputeCmd/ComputeButton
expect-box "leaves out 6 of 191 items"
expect CATWBComputeCmd/MassEditor 83.301kg
