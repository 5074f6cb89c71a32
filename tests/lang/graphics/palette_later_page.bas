10 ' A page that is not shown gets the new palette when it is.
20 SCREEN 3:CLS 3:SCREEN ,,1:CLS 3:LINE(50,50)-(600,350),1,BF:SCREEN ,,0:COLOR=(1,4)
30 SCREEN ,,,17:COLOR=(1,6):SCREEN ,,,1:LINE(50,50)-(100,100),1,BF:SCREEN ,,1,17
40 LINE(300,10)-(400,390),1,B
