10 ' What was drawn while graphics were hidden appears with them.
20 SCREEN 1,2:CLS 3:LINE(50,50)-(300,150),2,BF,6:SCREEN ,0
