// One master, many slaves: the upper four bits of the address choose the slave. An address that no slave
// has is acknowledged with 0xff and reported for one cycle.
module bus_fabric #(
    parameter SLAVES = 4
) (
    input  wire                clk,
    input  wire                rst,
    input  wire                request,
    input  wire [15:0]         address,
    output reg  [7:0]          rdata,
    output wire                ack,
    output reg                 decode_error,
    output wire [SLAVES-1:0]   slave_select,
    input  wire [SLAVES-1:0]   slave_ack,
    input  wire [8*SLAVES-1:0] slave_rdata
);

    wire none_selected = request && slave_select == 0;

    genvar s;
    generate
        for (s = 0; s < SLAVES; s = s + 1) begin : decode
            wire hit = address[15:12] == s;
            assign slave_select[s] = request && hit;
        end
    endgenerate

    assign ack = |slave_ack || decode_error;

    integer i;
    always @* begin
        rdata = {8{decode_error}};
        for (i = 0; i < SLAVES; i = i + 1)
            rdata = rdata | (slave_rdata[8*i +: 8] & {8{slave_ack[i]}});
    end

    always @(posedge clk)
        if (rst)
            decode_error <= 1'b0;
        else
            decode_error <= none_selected && !decode_error;

endmodule
