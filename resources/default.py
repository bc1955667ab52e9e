
#Orvane Operation script

def Configure(unit):
    #example: add a feed and product 
    unit.add_port("Feed",unit.PortType.MATERIAL,unit.PortDirection.FEED)
    unit.add_port("Product",unit.PortType.MATERIAL,unit.PortDirection.PRODUCT)
    #example: add a heat duty parameter
    WATT=unit.Dimension.KILOGRAM*unit.Dimension.METER**2/unit.Dimension.SECOND**3
    unit.add_parameter("Heat Duty",unit.ParameterType.REAL,unit.ParameterMode.INPUT,default=0,dimension=WATT)

def Calculate(unit):
    #for documentation, use 
    #  help(unit)    
    #example: copy Feed to Product, apply heat duty
    fd=unit.ports["Feed"]
    duty=unit.parameters["Heat Duty"].value
    if fd.flow_rate==0 and duty!=0:
        raise RuntimeError("Zero feed flow rate; cannot apply duty")
    h=fd.get_property('enthalpy')
    if duty!=0:
        h+=duty/fd.flow_rate
    unit.ports["Product"].set(x=fd.x,p=fd.p,flow_rate=fd.flow_rate,enthalpy=h)
