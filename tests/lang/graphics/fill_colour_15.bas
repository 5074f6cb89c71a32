10 ' The last colour fills, too; only a number behind it is none.
20 SCREEN 3:COLOR ,,,,2:CLS 3:LINE(0,0)-(9,9),1,BF,15:PRINT POINT(5,5)
