10 ' The switch hides graphics: 2 and 3 off, 0 and 1 on.
20 SCREEN 3,0:CLS 3:LINE(0,0)-(639,399),2,BF:SCREEN ,3:SCREEN ,1:SCREEN ,2:COLOR 5:PRINT "Text"
