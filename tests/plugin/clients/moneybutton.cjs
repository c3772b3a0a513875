// Asks for a paymail as an application with @moneybutton/paymail-client does: node moneybutton.cjs NAME@HOST
// Prints one JSON object: the capabilities of the host, the key, the script to pay to; or "error".
const dns = require('dns');
const { PaymailClient } = require('@moneybutton/paymail-client');

// The private key 1, as Bitcoin's import format writes it: the client signs its request.
const senderKey = 'KwDiBf89QgGbjEhKnhXJuH7LrciVrZi3qYjgd9M7rFU73sVHnoWn';

async function ask(paymail) {
    const client = new PaymailClient(dns);
    const { capabilities } = await client.resolver.getApiDescriptionFor(paymail.split('@')[1]);
    const pubkey = await client.getPublicKey(paymail);
    const sender = { senderHandle: 'bob@example.org', senderName: 'Bob', purpose: 'tea', amount: 550 };
    const output = await client.getOutputFor(paymail, sender, senderKey);
    return { capabilities, pubkey, output };
}

ask(process.argv[2])
    .catch((error) => ({ error: error.message }))
    .then((found) => console.log(JSON.stringify(found)));
