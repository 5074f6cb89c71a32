10 ' The page gets the palette that stands when it is shown, and only then.
20 SCREEN 3:CLS 3:LINE(50,50)-(300,300),1,BF,4:SCREEN ,,,0:COLOR=(1,6):COLOR=(4,2):SCREEN ,,,1
30 COLOR ,,,,0:LINE(320,50)-(600,300),4,BF,1
