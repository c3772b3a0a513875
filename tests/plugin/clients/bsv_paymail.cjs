// Asks for a paymail as an application with @bsv/paymail does: node bsv_paymail.cjs NAME@HOST
// Prints one JSON object: the capabilities of the host, the key, the reply with the payment destination; or "error".
const dns = require('dns');
const { PaymailClient } = require('@bsv/paymail/client');
const { Capability } = require('@bsv/paymail/capability');

// The client has no method of its own for this capability, but takes the description of any.
const paymentDestination = new Capability({
    title: 'Basic Address Resolution',
    code: 'paymentDestination',
    method: 'POST',
});

async function ask(paymail) {
    const client = new PaymailClient(undefined, { dns });
    const capabilities = await client.getDomainCapabilities(paymail.split('@')[1]);
    const { handle, pubkey } = await client.getPki(paymail);
    const { address, output } = await client.request(paymail, paymentDestination, {
        senderName: 'Bob',
        senderHandle: 'bob@example.org',
        dt: new Date().toISOString(),
        amount: 550,
        purpose: 'tea',
        signature: '',
    });
    return { capabilities, handle, pubkey, address, output };
}

ask(process.argv[2])
    .catch((error) => ({ error: error.message }))
    .then((found) => console.log(JSON.stringify(found)));
