10 ' A picture of the 400-line mode stays when the mode changes: its upper half is stretched.
20 SCREEN 3:CLS 3
30 CIRCLE(320,200),190,5:LINE(0,0)-(639,399),2:LINE(0,190)-(639,190),4
40 SCREEN 1
50 LINE(0,10)-(100,10),7
