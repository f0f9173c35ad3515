-- Master.tag File, Rev:1.0
layout.oa
