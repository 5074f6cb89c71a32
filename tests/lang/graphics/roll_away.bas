10 ' A page rolled by its height or more is all fill.
20 SCREEN 3,0,0:CLS 3:LINE(0,0)-(639,399),7,BF:COLOR 7,2:ROLL 400,0,Y
30 LINE(100,100)-(200,200),5,BF:ROLL 100,-300:ROLL 0,0
